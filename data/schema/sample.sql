-- Sample rows for trying out the program, the same for every server. The books are real; their ISBNs have correct check
-- digits but are invented, as are dates of entry, bar codes and loans.

insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (1,'7-02-001037-7','红楼梦','曹雪芹著','I242.4','chi','人民文学出版社','北京','1982','1606页',null,'21cm','中国古典文学读本丛书',null,'章回小说',null,3,'1999-06-08','文字资料印刷品','2');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (2,'7-02-001074-1','三国演义','罗贯中著','I242.4','chi','人民文学出版社','北京','1973','990页',null,'21cm','中国古典文学读本丛书',null,'章回小说',null,2,'2000-11-15','文字资料印刷品','3');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (3,'7-02-001111-X','水浒传','施耐庵, 罗贯中著','I242.4','chi','人民文学出版社','北京','1975','1317页',null,'19cm','中国古典文学读本丛书',null,'章回小说',null,3,'2001-04-22','文字资料印刷品','4');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (4,null,'西游记','吴承恩著','I242.4','chi','人民文学出版社','北京','1980','1220页',null,'21cm','中国古典文学读本丛书',null,'章回小说',null,3,'2002-09-01','文字资料印刷品','5');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (5,'7-02-001185-3','儒林外史','吴敬梓著','I242.4','chi','人民文学出版社','北京','1958','540页',null,'21cm',null,null,'章回小说',null,5,'2003-02-08','文字资料印刷品','6');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (6,'7-5325-1222-3','聊斋志异','蒲松龄著','I242.1','chi','上海古籍出版社','上海','1978','1736页',null,null,null,null,'文言小说',null,0,'2004-07-15','文字资料印刷品','7');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (7,'7-02-001259-0','呐喊','鲁迅著','I210.6','chi','人民文学出版社','北京','1973','145页',null,'21cm',null,null,'短篇小说','第2版',3,'2005-12-22','文字资料印刷品','8');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (8,null,'彷徨','鲁迅著','I210.6','chi','人民文学出版社','北京','1973','142页',null,'21cm',null,null,'短篇小说',null,3,'2006-05-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (9,'7-02-001333-3','朝花夕拾','鲁迅著','I210.4','chi','人民文学出版社','北京','1973','96页',null,'19cm',null,null,null,null,3,'1998-10-08','文字资料印刷品','10');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (10,'7-02-001370-8','骆驼祥子','老舍著','I246.5','chi','人民文学出版社','北京','1955','222页',null,'21cm',null,null,'长篇小说',null,2,'1999-03-15',null,'11');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (11,'7-8060-1407-1','四世同堂','老舍著','I246.5','chi','北京十月文艺出版社','北京','1993',null,null,'21cm',null,null,'长篇小说',null,3,'2000-08-22','文字资料印刷品','12');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (12,null,'茶馆','老舍著','I234','chi','人民文学出版社','北京','1980','89页',null,null,null,null,'话剧剧本',null,0,'2001-01-01','文字资料印刷品','13');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (13,'7-02-001481-X','家','巴金著','I246.5','chi','人民文学出版社',null,'1953','390页',null,'21cm','激流三部曲',null,'长篇小说',null,5,'2002-06-08','文字资料印刷品','14');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (14,'7-02-001518-2','春','巴金著','I246.5','chi','人民文学出版社','北京','1955','458页',null,'21cm','激流三部曲',null,'长篇小说','第2版',2,'2003-11-15','文字资料印刷品','15');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (15,'7-02-001555-7','秋','巴金著','I246.5','chi','人民文学出版社','北京','1955','567页',null,'19cm','激流三部曲',null,'长篇小说',null,5,'2004-04-22','文字资料印刷品','16');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (16,null,'子夜','茅盾著','I246.5','chi','人民文学出版社','北京','1960','535页',null,'21cm',null,null,'长篇小说',null,4,'2005-09-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (17,'7-8060-1629-5','边城','沈从文著','I246.4','chi','江苏人民出版社','南京','1981','177页',null,'21cm',null,null,'中篇小说',null,3,null,'文字资料印刷品','18');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (18,'7-02-001666-9','围城','钱锺书著','I246.5','chi','人民文学出版社','北京','1980','358页',null,null,null,null,null,null,0,'1998-07-15','文字资料印刷品','19');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (19,'7-8060-1703-8','雷雨','曹禺著','I234',null,'中国戏剧出版社','北京','1957','165页',null,'21cm',null,null,'话剧剧本',null,4,'1999-12-22','文字资料印刷品','20');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (20,null,'呼兰河传','萧红著','I246.5','chi','黑龙江人民出版社','哈尔滨','1979','240页',null,'21cm',null,null,'长篇小说',null,3,'2000-05-01',null,'21');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (21,'7-8060-1777-1','平凡的世界','路遥著','I247.5','chi','中国文联出版公司','北京','1986','1264页',null,'19cm',null,null,'长篇小说','第2版',5,'2001-10-08','文字资料印刷品','22');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (22,'7-02-001814-9','白鹿原','陈忠实著','I247.5','chi','人民文学出版社','北京','1993',null,null,'21cm',null,null,'长篇小说',null,2,'2002-03-15','文字资料印刷品','23');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (23,'7-8060-1851-4','活着',null,'I247.5','chi','南海出版公司','海口','1998','195页',null,'21cm',null,null,'长篇小说',null,3,'2003-08-22','文字资料印刷品','24');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (24,'7-8060-1888-3','许三观卖血记','余华著','I247.5','chi','南海出版公司','海口','1998','251页',null,null,null,null,'长篇小说',null,0,'2004-01-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (25,'7-8060-1925-1','红高粱家族','莫言著','I247.5','chi','解放军文艺出版社','北京','1987','471页',null,'21cm',null,null,'长篇小说',null,3,'2005-06-08','文字资料印刷品','26');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (26,'7-5063-1962-4','长恨歌','王安忆著','I247.5','chi','作家出版社',null,'1996','384页',null,'21cm',null,null,'长篇小说',null,4,'2006-11-15','文字资料印刷品','27');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (27,'7-02-001999-4','尘埃落定','阿来著','I247.5','chi','人民文学出版社','北京','1998','403页',null,'19cm',null,null,null,null,4,'1999-04-22','文字资料印刷品','28');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (28,null,'芙蓉镇','古华著','I247.5','chi','人民文学出版社','北京','1981','212页',null,'21cm',null,null,'长篇小说','第2版',3,'1999-09-01','文字资料印刷品','29');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (29,'7-8060-2073-X','三体','刘慈欣著','I247.55','chi','重庆出版社','重庆',null,'302页',null,'21cm','中国科幻基石丛书',null,'科学幻想小说',null,3,'2009-02-08','文字资料印刷品','30');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (30,'7-8060-2110-8','射雕英雄传','金庸著','I247.5','chi','生活·读书·新知三联书店','北京','1994','1474页',null,null,'金庸作品集',null,'武侠小说',null,0,'2001-07-15',null,'31');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (31,'7-5325-2147-8','诗经译注','程俊英撰','I222.2','chi','上海古籍出版社','上海','1985','688页','附勘误表1张','21cm',null,null,'古体诗',null,3,'2002-12-22','文字资料印刷品','32');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (32,null,'唐诗三百首','蘅塘退士编','I222.742','chi','中华书局','北京','1959','300页',null,'21cm',null,null,'唐诗',null,4,'2003-05-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (33,'7-5325-2221-0','宋词选','胡云翼选注','I222.844','chi','上海古籍出版社','上海','1978',null,null,'19cm',null,null,'宋词',null,3,'2004-10-08','文字资料印刷品','34');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (34,'7-02-002258-8','人间词话','王国维著','I207.23','chi','人民文学出版社','北京','1960','260页',null,'21cm',null,null,'词话',null,3,null,'文字资料印刷品','35');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (35,'7-101-02295-2','论语译注','杨伯峻译注','B222.2','chi','中华书局','北京','1980','316页',null,'21cm',null,null,'儒家','第2版',2,'2006-08-22','文字资料印刷品','36');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (36,null,'孟子译注','杨伯峻译注','B222.5','chi','中华书局','北京','1960','483页',null,null,null,null,null,null,0,'1998-01-01','文字资料印刷品','37');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (37,'7-101-02369-X','老子注译及评介','陈鼓应著','B223.1','chi','中华书局','北京','1984','489页',null,'21cm',null,null,'道家',null,null,'1999-06-08','文字资料印刷品','38');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (38,'7-101-02406-8','庄子集释','郭庆藩撰','B223.5',null,'中华书局','北京','1961','1118页',null,'21cm','新编诸子集成',null,'道家',null,3,'2000-11-15','文字资料印刷品','39');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (39,'7-8060-2443-3','中国哲学简史','冯友兰著','B2','chi','北京大学出版社',null,'1985','401页',null,'19cm',null,null,'哲学史',null,5,'2001-04-22','文字资料印刷品','40');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (40,null,'美的历程','李泽厚著','B83-092','chi','文物出版社','北京','1981','213页',null,'21cm',null,null,'美学史',null,5,'2002-09-01',null,null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (41,'7-8060-2517-0','谈美','朱光潜著','B83','chi','安徽教育出版社','合肥','1989','150页',null,'21cm',null,null,'美学',null,3,'2003-02-08','文字资料印刷品','42');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (42,'7-101-02554-4','史记','司马迁撰','K204.2','chi','中华书局','北京','1959','3322页',null,null,'二十四史',null,'纪传体','第2版',0,'2004-07-15','文字资料印刷品','43');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (43,'7-101-02591-9','汉书','班固撰','K234.104','chi','中华书局','北京','1962','4273页',null,'21cm','二十四史',null,'纪传体',null,3,'2005-12-22','文字资料印刷品','44');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (44,null,'资治通鉴','司马光编著','K204.3','chi','中华书局','北京','1956',null,null,'21cm',null,null,'编年体',null,3,'2006-05-01','文字资料印刷品','45');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (45,'7-101-02665-6','万历十五年','黄仁宇著','K248.3','chi','中华书局','北京','1982','329页',null,'19cm',null,null,null,null,3,'1998-10-08','文字资料印刷品','46');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (46,'7-100-02702-0','国史大纲',null,'K20','chi','商务印书馆','北京','1996','937页',null,'21cm',null,null,'中国历史',null,5,'1999-03-15','文字资料印刷品','47');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (47,'7-8060-2739-4','中国近代史','蒋廷黻著','K25','chi','岳麓书社','长沙','1987','128页',null,'21cm','旧籍新刊',null,'近代史',null,2,'2000-08-22','文字资料印刷品','48');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (48,null,'徐霞客游记','徐弘祖著','K928.9','chi','上海古籍出版社','上海','1980','1331页',null,null,null,null,'游记',null,0,'2001-01-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (49,'7-101-02813-6','水经注校证','郦道元著','K928.4','chi','中华书局','北京','2007','1096页',null,'21cm',null,null,'历史地理','第2版',4,'2008-06-08','文字资料印刷品','50');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (50,'7-8060-2850-1','乡土中国','费孝通著','C912.8','chi','生活·读书·新知三联书店','北京','1985','97页',null,'21cm',null,null,'农村社会学',null,3,'2003-11-15',null,'51');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (51,'7-8060-2887-0','江村经济','费孝通著','F327.53','chi','江苏人民出版社','南京','1986','253页',null,'19cm',null,null,'农村经济',null,3,null,'文字资料印刷品','52');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (52,null,'孙子兵法新注','中国人民解放军军事科学院战争理论研究部注释','E892.25','chi','中华书局',null,'1977','189页',null,'21cm',null,null,'兵法',null,3,'2005-09-01','文字资料印刷品','53');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (53,'7-01-002961-X','中国通史简编','范文澜著','K20','chi','人民出版社','北京','1949','1560页',null,'21cm',null,null,'中国历史',null,3,'2006-02-08','文字资料印刷品','54');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (54,'7-8060-2998-2','语法修辞讲话','吕叔湘, 朱德熙著','H146','chi','中国青年出版社','北京','1952','292页',null,null,null,null,null,null,0,'1998-07-15','文字资料印刷品','55');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (55,'7-100-03035-8','现代汉语八百词','吕叔湘主编','H146.2','chi','商务印书馆','北京','1980',null,null,'21cm',null,null,'虚词',null,2,'1999-12-22','文字资料印刷品','56');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (56,null,'说文解字','许慎撰','H161','chi','中华书局','北京','1963','328页',null,'21cm',null,null,'古代汉语字典','第2版',3,'2000-05-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (57,'7-100-03109-5','新华字典','商务印书馆辞书研究中心修订','H163',null,'商务印书馆','北京','1998','700页',null,'19cm',null,null,'现代汉语字典',null,3,'2001-10-08','文字资料印刷品','58');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (58,'7-101-03146-3','古代汉语','王力主编','H109.2','chi','中华书局','北京',null,'1759页',null,'21cm',null,null,'古代汉语',null,3,'2002-03-15','文字资料印刷品','59');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (59,'7-8060-3183-9','梦溪笔谈校证','沈括著','Z429.441','chi','古典文学出版社','上海','1957','1118页',null,'21cm',null,null,'笔记',null,2,'2003-08-22','文字资料印刷品','60');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (60,null,'天工开物','宋应星著','N092','chi','广东人民出版社','广州','1976','504页',null,null,null,null,'技术史',null,0,'2004-01-01',null,'61');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (61,'7-8060-3257-6','本草纲目','李时珍著','R281.3','chi','人民卫生出版社','北京','1977','2978页',null,'21cm',null,null,'本草',null,3,'2005-06-08','文字资料印刷品','62');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (62,'7-8060-3294-0','黄帝内经素问','王冰注','R221.1','chi','人民卫生出版社','北京','1963','574页','附勘误表1张','21cm',null,null,'内经',null,4,'2006-11-15','文字资料印刷品','63');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (63,'7-03-003331-0','九章算术注释','白尚恕注释','O112','chi','科学出版社','北京','1983','384页',null,'19cm',null,null,null,'第2版',3,'1998-04-22','文字资料印刷品','64');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (64,null,'堆垒素数论','华罗庚著','O156.4','chi','科学出版社','北京','1957','169页',null,'21cm',null,null,'素数',null,3,'1999-09-01','文字资料印刷品',null);
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (65,'7-03-003405-8','中国植物志','中国科学院中国植物志编辑委员会编','Q948.52','chi','科学出版社',null,'1959','454页',null,'21cm',null,null,'植物志',null,2,'2000-02-08','文字资料印刷品','66');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (66,'7-100-03442-6','物种起源','达尔文著','Q111.2','chi','商务印书馆','北京','1995',null,null,null,'汉译世界学术名著丛书','商务印书馆编','进化论',null,0,'2001-07-15','文字资料印刷品','67');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (67,'7-100-03479-5','国富论','亚当·斯密著','F091.33','chi','商务印书馆','北京','1972','498页',null,'21cm','汉译世界学术名著丛书','商务印书馆编','古典经济学',null,4,'2002-12-22','文字资料印刷品','68');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (68,null,'数据库系统概论','萨师煊, 王珊编著','TP311.13','chi','高等教育出版社','北京','1983','380页','光盘1片','21cm',null,null,'数据库系统',null,2,null,'文字资料印刷品','69');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (69,'7-8060-3553-2','中国图书馆分类法',null,'G254.122','chi','北京图书馆出版社','北京','1999','1024页',null,'19cm',null,null,'图书分类法',null,3,'2004-10-08','文字资料印刷品','70');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (100060,'7-8060-3590-7','中国机读目录格式使用手册','北京图书馆编','G254.364','chi','华艺出版社','北京','1995','373页',null,'21cm',null,null,'机读目录','第2版',2,'2005-03-15',null,'71');
insert into zsk (zskid,isbn,bookname,author,classcode,lagclass,publisher,pubplace,pubdate,pages,appendix,measure,books,booksauthor,ztc,edition,bookcount,catatime,docclass,zch) values (100061,'7-8060-3627-X','中国文献编目规则','中国文献编目规则编撰小组编','G254.31','chi','广东人民出版社','广州','1996','432页',null,'21cm',null,null,'文献编目',null,2,'2006-08-22','文字资料印刷品','72');

insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000101',1,'第1卷','文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000102',1,'第2卷','密集书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000103',1,'第3卷','密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000201',2,'第1卷','社科阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000202',2,'第2卷','文学阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000301',3,'第1卷','社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000302',3,'第2卷','文学阅览室',0.95,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000303',3,'第3卷','文学阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000401',4,'第1卷','中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000402',4,'第2卷','密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000403',4,'第3卷','社科阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000501',5,null,'文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000502',5,null,'文学阅览室',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000503',5,null,'文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000504',5,null,null,0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000505',5,null,'中文书库',12.50,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000701',7,null,'密集书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000702',7,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000703',7,null,'社科阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000801',8,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000802',8,null,'文学阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000803',8,null,'文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000901',9,null,'文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000902',9,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0000903',9,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001001',10,null,'文学阅览室',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001002',10,null,'文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001101',11,'第1卷','社科阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001102',11,'第2卷','中文书库',0.95,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001103',11,'第3卷','密集书库',0.95,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001301',13,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001302',13,null,'文学阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001303',13,null,'文学阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001304',13,null,null,26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001305',13,null,'密集书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001401',14,null,'社科阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001402',14,null,'社科阅览室',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001501',15,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001502',15,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001503',15,null,'密集书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001504',15,null,null,8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001505',15,null,'密集书库',26.80,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001601',16,null,'社科阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001602',16,null,'社科阅览室',26.80,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001603',16,null,'文学阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001604',16,null,null,8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001701',17,null,'社科阅览室',0.95,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001702',17,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001703',17,null,'中文书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001901',19,null,'社科阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001902',19,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001903',19,null,'密集书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0001904',19,null,null,45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002001',20,null,'文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002002',20,null,'中文书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002003',20,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002101',21,'第1卷','社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002102',21,'第2卷','中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002103',21,'第3卷','密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002104',21,'第4卷',null,26.80,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002105',21,'第5卷','社科阅览室',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002201',22,null,'密集书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002202',22,null,'中文书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002301',23,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002302',23,null,'中文书库',12.50,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002303',23,null,'中文书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002501',25,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002502',25,null,'中文书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002503',25,null,'中文书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002601',26,null,'密集书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002602',26,null,'文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002603',26,null,'密集书库',null,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002604',26,null,null,45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002701',27,null,'密集书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002702',27,null,'社科阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002703',27,null,'密集书库',26.80,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002704',27,null,null,0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002801',28,null,'社科阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002802',28,null,'文学阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002803',28,null,'中文书库',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002901',29,null,'中文书库',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002902',29,null,'密集书库',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0002903',29,null,'密集书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003101',31,null,'中文书库',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003102',31,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003103',31,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003201',32,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003202',32,null,'文学阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003203',32,null,'密集书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003204',32,null,null,0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003301',33,null,'社科阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003302',33,null,'中文书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003303',33,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003401',34,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003402',34,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003403',34,null,'中文书库',0.95,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003501',35,null,'社科阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003502',35,null,'密集书库',3.20,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003701',37,null,'中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003702',37,null,'社科阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003801',38,'第1卷','密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003802',38,'第2卷','密集书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003803',38,'第3卷','文学阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003901',39,null,'密集书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003902',39,null,'文学阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003903',39,null,'中文书库',0.95,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003904',39,null,null,null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0003905',39,null,'文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004001',40,null,'中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004002',40,null,'密集书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004003',40,null,'文学阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004004',40,null,null,8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004005',40,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004101',41,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004102',41,null,'中文书库',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004103',41,null,'文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004301',43,'第1卷','中文书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004302',43,'第2卷','中文书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004303',43,'第3卷','文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004401',44,'第1卷','社科阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004402',44,'第2卷','社科阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004403',44,'第3卷','文学阅览室',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004501',45,null,'密集书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004502',45,null,'密集书库',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004503',45,null,'社科阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004601',46,'第1卷','文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004602',46,'第2卷','密集书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004603',46,'第3卷','中文书库',0.95,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004604',46,'第4卷',null,0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004605',46,'第5卷','社科阅览室',12.50,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004701',47,null,'社科阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004702',47,null,'密集书库',3.20,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004901',49,'第1卷','密集书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004902',49,'第2卷','社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004903',49,'第3卷','文学阅览室',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0004904',49,'第4卷',null,45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005001',50,null,'文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005002',50,null,'文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005003',50,null,'文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005101',51,null,'中文书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005102',51,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005103',51,null,'密集书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005201',52,null,'中文书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005202',52,null,'社科阅览室',12.50,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005203',52,null,'文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005301',53,'第1卷','中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005302',53,'第2卷','中文书库',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005303',53,'第3卷','文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005501',55,null,'中文书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005502',55,null,'社科阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005601',56,null,'文学阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005602',56,null,'密集书库',12.50,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005603',56,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005701',57,null,'文学阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005702',57,null,'密集书库',0.95,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005703',57,null,'密集书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005801',58,'第1卷','文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005802',58,'第2卷','密集书库',0.95,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005803',58,'第3卷','社科阅览室',0.95,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005901',59,'第1卷','中文书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0005902',59,'第2卷','文学阅览室',3.20,'待修','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006101',61,'第1卷','文学阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006102',61,'第2卷','社科阅览室',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006103',61,'第3卷','文学阅览室',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006201',62,null,'中文书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006202',62,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006203',62,null,'社科阅览室',12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006204',62,null,null,12.50,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006301',63,null,'文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006302',63,null,'社科阅览室',3.20,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006303',63,null,'中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006401',64,null,'中文书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006402',64,null,'文学阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006403',64,null,'文学阅览室',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006501',65,null,'中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006502',65,null,'中文书库',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006701',67,null,'中文书库',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006702',67,null,'密集书库',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006703',67,null,'密集书库',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006704',67,null,null,null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006801',68,null,'中文书库',8.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006802',68,null,'文学阅览室',8.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006901',69,'第1卷','文学阅览室',26.80,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006902',69,'第2卷','中文书库',null,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0006903',69,'第3卷','社科阅览室',45.00,'借出','0');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0007001',100060,null,'社科阅览室',null,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0007002',100060,null,'文学阅览室',45.00,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0007101',100061,null,'文学阅览室',3.20,'在架','1');
insert into sck (barcode,zskid,rollcode,bookplace,price,bookstatus,borrowstatus) values ('TS0007102',100061,null,'社科阅览室',8.00,'待修','0');

insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0000102','D00011','2006-02-04','2006-03-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0000302','D00159','2006-04-04','2006-05-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0000502','D00217','2006-06-04','2006-07-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0000505','D00321','2006-06-13','2006-07-13');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001001','D00147','2006-05-01','2006-06-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001103','D00196','2006-06-07','2006-07-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001305','D00032','2006-02-13','2006-03-13');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001402','D00252','2006-03-04','2006-04-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001505','D00216','2006-04-13','2006-05-13');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001602','D00019','2006-05-04','2006-06-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001701','D00162','2006-06-01','2006-07-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0001904','D00352','2006-02-10','2006-03-10');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002104','D00002','2006-04-10','2006-05-10');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002105','D00132','2006-04-13','2006-05-13');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002202','D00312','2006-05-04','2006-06-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002603','D00059','2006-03-07','2006-04-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002703','D00286','2006-04-07','2006-05-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002803','D00332','2006-05-07','2006-06-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002901','D00367','2006-06-01','2006-07-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0002902','D00126','2006-06-04','2006-07-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0003101','D00161','2006-02-01','2006-03-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0003903','D00277','2006-04-07','2006-05-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0004301','D00163','2006-02-01','2006-03-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0004403','D00283','2006-03-07','2006-04-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0004501','D00153','2006-04-01','2006-05-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0004502','D00087','2006-04-04','2006-05-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0004605','D00312','2006-05-13','2006-06-13');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0005202','D00037','2006-05-04','2006-06-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0005602','D00253','2006-03-04','2006-04-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0005702','D00010','2006-04-04','2006-05-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006102','D00109','2006-02-04','2006-03-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006103','D00329','2006-02-07','2006-03-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006302','D00092','2006-04-04','2006-05-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006403','D00111','2006-05-07','2006-06-07');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006801','D00113','2006-03-01','2006-04-01');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006902','D00179','2006-04-04','2006-05-04');
insert into jhsk (barcode,dzid,jsdate,yhdate) values ('TS0006903','D00014','2006-04-07','2006-05-07');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('红楼梦','曹雪芹著','','7-02-001037-7','北京','人民文学出版社','1982',1606,'I242.4','中国古典文学读本丛书','','21cm','文字资料印刷品','章回小说','','chi',45,'00392nam0 2200157   450 0010011000000100028000111000041000391010008000802000021000882100031001092150017001402250025001576060013001826900014001958010025002090000000001  a7-02-001037-7dCNY45.00  a20060301d1982    em y0chiy0110    ea0 achi1 a红楼梦f曹雪芹著  a北京c人民文学出版社d1982  a1606页d21cm0 a中国古典文学读本丛书0 a章回小说  aI242.4v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('呐喊','鲁迅著','','7-02-001259-0','北京','人民文学出版社','1973',145,'I210.6','','','21cm','文字资料印刷品','短篇小说','','chi',26,'00350nam0 2200145   450 0010011000000100028000111000041000391010008000802000017000882100031001052150016001366060013001526900014001658010025001790000000007  a7-02-001259-0dCNY26.00  a20060301d1973    em y0chiy0110    ea0 achi1 a呐喊f鲁迅著  a北京c人民文学出版社d1973  a145页d21cm0 a短篇小说  aI210.6v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('骆驼祥子','老舍著','','7020013708','北京','人民文学出版社','1955',222,'I246.5','','','21cm','文字资料印刷品','长篇小说','','chi',26,'00351nam0 2200145   450 0010011000000100025000111000041000361010008000772000021000852100031001062150016001376060013001536900014001668010025001800000000010  a7020013708dCNY26.00  a20060301d1955    em y0chiy0110    ea0 achi1 a骆驼祥子f老舍著  a北京c人民文学出版社d1955  a222页d21cm0 a长篇小说  aI246.5v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('围城','钱锺书著','','7020016669','北京','人民文学出版社','1980',358,'I246.5','','','21cm','文字资料印刷品','长篇小说','','chi',12,'00349nam0 2200145   450 0010011000000100025000111000041000361010008000772000019000852100031001042150016001356060013001516900014001648010025001780000000018  a7020016669dCNY12.00  a20060301d1980    em y0chiy0110    ea0 achi1 a围城f钱锺书著  a北京c人民文学出版社d1980  a358页d21cm0 a长篇小说  aI246.5v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('活着','余华著','','7-8060-1851-4','海口','南海出版公司','1998',195,'I247.5','','','21cm','文字资料印刷品','长篇小说','','chi',45,'00348nam0 2200145   450 0010011000000100028000111000041000391010008000802000017000882100029001052150016001346060013001506900014001638010025001770000000023  a7-8060-1851-4dCNY45.00  a20060301d1998    em y0chiy0110    ea0 achi1 a活着f余华著  a海口c南海出版公司d1998  a195页d21cm0 a长篇小说  aI247.5v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('射雕英雄传','金庸著','','7806021108','北京','生活·读书·新知三联书店','1994',1474,'I247.5','金庸作品集','','21cm','文字资料印刷品','武侠小说','','chi',8,'00390nam0 2200157   450 0010011000000100024000111000041000351010008000762000023000842100041001072150017001482250015001656060013001806900014001938010025002070000000030  a7806021108dCNY8.00  a20060301d1994    em y0chiy0110    ea0 achi1 a射雕英雄传f金庸著  a北京c生活·读书·新知三联书店d1994  a1474页d21cm0 a金庸作品集0 a武侠小说  aI247.5v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('论语译注','杨伯峻译注','','7-101-02295-2','北京','中华书局','1980',316,'B222.2','','','21cm','文字资料印刷品','儒家','','chi',45,'00348nam0 2200145   450 0010011000000100028000111000041000391010008000802000025000882100025001132150016001386060009001546900014001638010025001770000000035  a7-101-02295-2dCNY45.00  a20060301d1980    em y0chiy0110    ea0 achi1 a论语译注f杨伯峻译注  a北京c中华书局d1980  a316页d21cm0 a儒家  aB222.2v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('万历十五年','黄仁宇著','','7-101-02665-6','北京','中华书局','1982',329,'K248.3','','','21cm','文字资料印刷品','中国历史','','chi',12,'00352nam0 2200145   450 0010011000000100028000111000041000391010008000802000025000882100025001132150016001386060013001546900014001678010025001810000000045  a7-101-02665-6dCNY12.00  a20060301d1982    em y0chiy0110    ea0 achi1 a万历十五年f黄仁宇著  a北京c中华书局d1982  a329页d21cm0 a中国历史  aK248.3v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('乡土中国','费孝通著','','7806028501','北京','生活·读书·新知三联书店','1985',97,'C912.8','','','21cm','文字资料印刷品','农村社会学','','chi',45,'00364nam0 2200145   450 0010011000000100025000111000041000361010008000772000023000852100041001082150015001496060015001646900014001798010025001930000000050  a7806028501dCNY45.00  a20060301d1985    em y0chiy0110    ea0 achi1 a乡土中国f费孝通著  a北京c生活·读书·新知三联书店d1985  a97页d21cm0 a农村社会学  aC912.8v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('说文解字','许慎撰','','7101030726','北京','中华书局','1963',328,'H161','','','21cm','文字资料印刷品','古代汉语字典','','chi',8,'00346nam0 2200145   450 0010011000000100024000111000041000351010008000762000021000842100025001052150016001306060017001466900012001638010025001750000000056  a7101030726dCNY8.00  a20060301d1963    em y0chiy0110    ea0 achi1 a说文解字f许慎撰  a北京c中华书局d1963  a328页d21cm0 a古代汉语字典  aH161v4 0aCNb示例馆c20060301');
insert into taoluTable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('数据库系统概论','萨师煊, 王珊编著','','7040035162','北京','高等教育出版社','1983',380,'TP311.13','','','21cm','文字资料印刷品','数据库系统','','chi',12,'00371nam0 2200145   450 0010011000000100025000111000041000361010008000772000037000852100031001222150016001536060015001696900016001848010025002000000000068  a7040035162dCNY12.00  a20060301d1983    em y0chiy0110    ea0 achi1 a数据库系统概论f萨师煊, 王珊编著  a北京c高等教育出版社d1983  a380页d21cm0 a数据库系统  aTP311.13v4 0aCNb示例馆c20060301');
