<!-- The indexes of the catalogue of the tests. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:m="http://www.loc.gov/MARC21/slim" xmlns:z="http://indexdata.com/zebra-2.0">
 <xsl:template match="text()"/>
 <xsl:template match="m:record">
  <z:record z:id="{m:controlfield[@tag='001']}"><xsl:apply-templates/></z:record>
 </xsl:template>
 <xsl:template match="m:datafield[@tag='010']/m:subfield[@code='a']">
  <z:index name="ISBN:w ISBN:p"><xsl:value-of select="translate(.,'-','')"/></z:index>
 </xsl:template>
 <xsl:template match="m:datafield[@tag='200']/m:subfield[@code='a']">
  <z:index name="title:w title:p"><xsl:value-of select="."/></z:index>
 </xsl:template>
 <xsl:template match="m:datafield[@tag='701']/m:subfield[@code='a']">
  <z:index name="author:w author:p"><xsl:value-of select="."/></z:index>
 </xsl:template>
</xsl:stylesheet>
