-- Creates :rows catalogue rows of realistic length.
begin;
insert into zsk (zskid, isbn, bookname, author, classcode, lagclass, publisher, pubplace, pubdate, pages, appendix,
                 measure, books, booksauthor, ztc, edition, bookcount, catatime, docclass, zch)
with recursive numbers (n) as (select 1 union all select n + 1 from numbers where n < :rows)
select n, printf('7-%03d-%05d-%d', n % 900, n % 99991, n % 10),
       '中国图书分类与编目实用手册第' || n || '卷', '编目委员会' || (n % 5003) || '编著',
       printf('G25%d.%d', n % 10, n % 97), 'chi', '高等教育出版社' || (n % 211), '北京', (1980 + n % 40) || '.5',
       (100 + n % 700) || '页', '光盘1张', '26cm', '图书馆学丛书', '张三', '图书编目', '第2版', 1 + n % 5,
       printf('%d-%02d-%02d', 1990 + n % 30, 1 + n % 12, 1 + n % 28), '文字资料印刷品', n % 1000 from numbers;
commit;
