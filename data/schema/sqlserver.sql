-- The tables for SQL Server. The collation is needed to store Chinese from the plain literals that the program writes.
-- taoluTable is the copy-cataloguing store; zsk is the catalogue, sck its copies, jhsk the loans.
create table taoluTable (
  zskid int identity(1,1) primary key,
  bookname varchar(200), author varchar(200), edition varchar(100), isbn varchar(40), pubplace varchar(100),
  publisher varchar(200), pubdate varchar(40), pages int, classcode varchar(60), books varchar(200),
  booksauthor varchar(200), measure varchar(60), docclass varchar(60), ztc varchar(200), appendix varchar(200),
  lagclass varchar(40), price numeric(12,2), marc varchar(max));

create table zsk (
  zskid int primary key,
  isbn varchar(40), bookname varchar(200), author varchar(200), classcode varchar(60), lagclass varchar(40),
  publisher varchar(200), pubplace varchar(100), pubdate varchar(40), pages varchar(60), appendix varchar(200),
  measure varchar(60), books varchar(200), booksauthor varchar(200), ztc varchar(200), edition varchar(100),
  bookcount int, catatime datetime, docclass varchar(60), zch varchar(40));

create table sck (
  barcode varchar(40) primary key,
  zskid int, rollcode varchar(40), bookplace varchar(100), price numeric(12,2), bookstatus varchar(40),
  borrowstatus varchar(4));
create index sck_zskid on sck (zskid);

create table jhsk (
  barcode varchar(40), dzid varchar(40), jsdate datetime, yhdate datetime);
create index jhsk_barcode on jhsk (barcode);
