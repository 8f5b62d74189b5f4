-- The tables for MariaDB. On Linux, table names are case-sensitive: keep this spelling.
-- taoluTable is the copy-cataloguing store; zsk is the catalogue, sck its copies, jhsk the loans.
create table taoluTable (
  zskid integer auto_increment primary key,
  bookname varchar(200), author varchar(200), edition varchar(100), isbn varchar(40), pubplace varchar(100),
  publisher varchar(200), pubdate varchar(40), pages integer, classcode varchar(60), books varchar(200),
  booksauthor varchar(200), measure varchar(60), docclass varchar(60), ztc varchar(200), appendix varchar(200),
  lagclass varchar(40), price numeric(12,2), marc longtext) character set utf8mb4 collate utf8mb4_general_ci;

create table zsk (
  zskid integer primary key,
  isbn varchar(40), bookname varchar(200), author varchar(200), classcode varchar(60), lagclass varchar(40),
  publisher varchar(200), pubplace varchar(100), pubdate varchar(40), pages varchar(60), appendix varchar(200),
  measure varchar(60), books varchar(200), booksauthor varchar(200), ztc varchar(200), edition varchar(100),
  bookcount integer, catatime datetime, docclass varchar(60), zch varchar(40)) character set utf8mb4 collate utf8mb4_general_ci;

create table sck (
  barcode varchar(40) primary key,
  zskid integer, rollcode varchar(40), bookplace varchar(100), price numeric(12,2), bookstatus varchar(40),
  borrowstatus varchar(4)) character set utf8mb4 collate utf8mb4_general_ci;
create index sck_zskid on sck (zskid);

create table jhsk (
  barcode varchar(40), dzid varchar(40), jsdate datetime, yhdate datetime) character set utf8mb4 collate utf8mb4_general_ci;
create index jhsk_barcode on jhsk (barcode);
