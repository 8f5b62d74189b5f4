// The catalogues of the tests (scripts/catalogue-servers), as targets. Their records are those of the sample file.
#pragma once

#include "targets/target.h"

using targets::Target;

int portOf(const QString &server);

Target openCatalogue(targets::Syntax syntax = targets::Syntax::Unimarc); // a Zebra; UNIMARC in GB18030, others in UTF-8
Target openBySru(targets::QueryLanguage language);                       // the same by SRU
Target gbkCatalogue();                                                   // reads queries in GBK
Target privateCatalogue();                                               // requires a login, which the target has
Target madeUpRecords(); // yaz-ztest: a query for a number has as many hits
