// The words and phrases from which generated records are composed.
#pragma once

#include <QStringView>
#include <array>

namespace tools {

struct Topic {
    QStringView name;
    QStringView pinyin;
    QStringView heading; // subject heading
    QStringView classNumber;
    QStringView scienceNumber; // in the classification of the Academy of Sciences
};

inline constexpr auto topics = std::to_array<Topic>({
    {u"数据库系统", u"shu ju ku xi tong", u"数据库系统", u"TP311.13", u"73.9621"},
    {u"操作系统", u"cao zuo xi tong", u"操作系统", u"TP316", u"73.9622"},
    {u"计算机网络", u"ji suan ji wang luo", u"计算机网络", u"TP393", u"73.9623"},
    {u"人工智能", u"ren gong zhi neng", u"人工智能", u"TP18", u"73.823"},
    {u"软件工程", u"ruan jian gong cheng", u"软件工程", u"TP311.5", u"73.9624"},
    {u"信号与系统", u"xin hao yu xi tong", u"信号系统", u"TN911.6", u"73.4"},
    {u"模拟电子技术", u"mo ni dian zi ji shu", u"模拟电路", u"TN710", u"73.7"},
    {u"自动控制", u"zi dong kong zhi", u"自动控制理论", u"TP13", u"73.82"},
    {u"高等数学", u"gao deng shu xue", u"高等数学", u"O13", u"51.1"},
    {u"线性代数", u"xian xing dai shu", u"线性代数", u"O151.2", u"51.21"},
    {u"概率统计", u"gai lv tong ji", u"概率统计", u"O211", u"51.8"},
    {u"普通物理", u"pu tong wu li", u"普通物理学", u"O4", u"53"},
    {u"量子力学", u"liang zi li xue", u"量子力学", u"O413.1", u"53.35"},
    {u"有机化学", u"you ji hua xue", u"有机化学", u"O62", u"54.6"},
    {u"分析化学", u"fen xi hua xue", u"分析化学", u"O65", u"54.4"},
    {u"植物生理", u"zhi wu sheng li", u"植物生理学", u"Q945", u"58.842"},
    {u"微生物", u"wei sheng wu", u"微生物学", u"Q93", u"58.55"},
    {u"遗传学", u"yi chuan xue", u"遗传学", u"Q3", u"58.12"},
    {u"中医诊断", u"zhong yi zhen duan", u"中医诊断学", u"R241", u"61.32"},
    {u"内科护理", u"nei ke hu li", u"内科学", u"R473.5", u"61.6"},
    {u"水稻栽培", u"shui dao zai pei", u"水稻", u"S511", u"65.3111"},
    {u"果树修剪", u"guo shu xiu jian", u"果树", u"S660.5", u"65.421"},
    {u"淡水养鱼", u"dan shui yang yu", u"淡水养殖", u"S964", u"65.83"},
    {u"机械设计", u"ji xie she ji", u"机械设计", u"TH122", u"78.1"},
    {u"建筑结构", u"jian zhu jie gou", u"建筑结构", u"TU3", u"86.4"},
    {u"公路工程", u"gong lu gong cheng", u"道路工程", u"U41", u"87.21"},
    {u"水文地质", u"shui wen di zhi", u"水文地质", u"P641", u"56.84"},
    {u"气象观测", u"qi xiang guan ce", u"气象观测", u"P41", u"56.42"},
    {u"西方经济学", u"xi fang jing ji xue", u"西方经济学", u"F091.3", u"27.18"},
    {u"财务会计", u"cai wu kuai ji", u"财务会计", u"F234.4", u"27.172"},
    {u"市场营销", u"shi chang ying xiao", u"市场营销学", u"F713.50", u"27.71"},
    {u"国际贸易", u"guo ji mao yi", u"国际贸易", u"F74", u"27.75"},
    {u"货币银行", u"huo bi yin hang", u"货币银行学", u"F820", u"27.8"},
    {u"民法", u"min fa", u"民法", u"D913", u"34.2"},
    {u"行政管理", u"xing zheng guan li", u"行政管理", u"D035", u"31.1"},
    {u"中国通史", u"zhong guo tong shi", u"中国历史", u"K20", u"21.1"},
    {u"地方志", u"di fang zhi", u"地方志", u"K29", u"21.9"},
    {u"古典诗歌", u"gu dian shi ge", u"古典诗歌", u"I207.22", u"44.56"},
    {u"现代小说", u"xian dai xiao shuo", u"小说研究", u"I207.42", u"44.57"},
    {u"民间文学", u"min jian wen xue", u"民间文学", u"I207.7", u"44.59"},
    {u"音韵", u"yin yun", u"汉语音韵学", u"H11", u"43.11"},
    {u"大学英语", u"da xue ying yu", u"英语", u"H31", u"43.5"},
    {u"中国哲学", u"zhong guo zhe xue", u"中国哲学", u"B2", u"12.1"},
    {u"普通心理", u"pu tong xin li", u"普通心理学", u"B84", u"16.1"},
    {u"教育学", u"jiao yu xue", u"教育学", u"G40", u"38.1"},
    {u"图书馆编目", u"tu shu guan bian mu", u"图书编目", u"G254.3", u"37.53"},
    {u"档案管理", u"dang an guan li", u"档案管理", u"G271", u"37.6"},
    {u"书法", u"shu fa", u"书法", u"J292", u"46.8"},
    {u"山水画", u"shan shui hua", u"山水画", u"J212.26", u"46.5"},
    {u"戏曲音乐", u"xi qu yin yue", u"戏曲音乐", u"J617", u"46.75"},
});

struct Form {
    QStringView name;
    QStringView pinyin;
    QStringView division; // form subdivision
};

inline constexpr auto forms = std::to_array<Form>({
    {u"概论", u"gai lun", u"高等学校—教材"},
    {u"教程", u"jiao cheng", u"教材"},
    {u"导论", u"dao lun", u"高等学校—教材"},
    {u"基础", u"ji chu", u"基本知识"},
    {u"手册", u"shou ce", u"手册"},
    {u"研究", u"yan jiu", u"研究"},
    {u"论集", u"lun ji", u"文集"},
    {u"问答", u"wen da", u"问答"},
    {u"习题集", u"xi ti ji", u"习题"},
    {u"词典", u"ci dian", u"词典"},
    {u"入门", u"ru men", u"基本知识"},
    {u"讲义", u"jiang yi", u"教材"},
    {u"图说", u"tu shuo", u"图解"},
    {u"史话", u"shi hua", u"历史"},
    {u"案例分析", u"an li fen xi", u"案例"},
    {u"实用指南", u"shi yong zhi nan", u"指南"},
});

struct Word {
    QStringView name;
    QStringView pinyin;
};

inline constexpr auto surnames = std::to_array<Word>({
    {u"王", u"wang"},      {u"李", u"li"},      {u"张", u"zhang"}, {u"刘", u"liu"},  {u"陈", u"chen"},
    {u"杨", u"yang"},      {u"赵", u"zhao"},    {u"黄", u"huang"}, {u"周", u"zhou"}, {u"吴", u"wu"},
    {u"徐", u"xu"},        {u"孙", u"sun"},     {u"胡", u"hu"},    {u"朱", u"zhu"},  {u"高", u"gao"},
    {u"林", u"lin"},       {u"何", u"he"},      {u"郭", u"guo"},   {u"马", u"ma"},   {u"罗", u"luo"},
    {u"梁", u"liang"},     {u"宋", u"song"},    {u"郑", u"zheng"}, {u"谢", u"xie"},  {u"韩", u"han"},
    {u"唐", u"tang"},      {u"冯", u"feng"},    {u"于", u"yu"},    {u"董", u"dong"}, {u"萧", u"xiao"},
    {u"程", u"cheng"},     {u"曹", u"cao"},     {u"袁", u"yuan"},  {u"邓", u"deng"}, {u"许", u"xu"},
    {u"傅", u"fu"},        {u"沈", u"shen"},    {u"彭", u"peng"},  {u"吕", u"lv"},   {u"苏", u"su"},
    {u"欧阳", u"ou yang"}, {u"司马", u"si ma"},
});

inline constexpr auto givenNames = std::to_array<Word>({
    {u"建国", u"jian guo"}, {u"志强", u"zhi qiang"}, {u"文华", u"wen hua"},    {u"晓明", u"xiao ming"},
    {u"秀英", u"xiu ying"}, {u"海燕", u"hai yan"},   {u"春生", u"chun sheng"}, {u"国栋", u"guo dong"},
    {u"丽娟", u"li juan"},  {u"德明", u"de ming"},   {u"永康", u"yong kang"},  {u"雪梅", u"xue mei"},
    {u"伟", u"wei"},        {u"敏", u"min"},         {u"静", u"jing"},         {u"涛", u"tao"},
    {u"兰", u"lan"},        {u"毅", u"yi"},          {u"世昌", u"shi chang"},  {u"思远", u"si yuan"},
    {u"家骏", u"jia jun"},  {u"玉珍", u"yu zhen"},   {u"宏图", u"hong tu"},    {u"立群", u"li qun"},
    {u"鸿儒", u"hong ru"},  {u"子安", u"zi an"},     {u"慧敏", u"hui min"},    {u"景行", u"jing xing"},
});

struct Publisher {
    QStringView place;
    QStringView name;
    QStringView prefix; // publisher's ISBN prefix, in group 7
    QStringView region; // code of the province or city
};

inline constexpr auto publishers = std::to_array<Publisher>({
    {u"北京", u"科学出版社", u"03", u"110000"},       {u"北京", u"高等教育出版社", u"04", u"110000"},
    {u"北京", u"人民文学出版社", u"02", u"110000"},   {u"北京", u"商务印书馆", u"100", u"110000"},
    {u"北京", u"中华书局", u"101", u"110000"},        {u"北京", u"机械工业出版社", u"111", u"110000"},
    {u"北京", u"人民邮电出版社", u"115", u"110000"},  {u"北京", u"人民卫生出版社", u"117", u"110000"},
    {u"北京", u"清华大学出版社", u"302", u"110000"},  {u"北京", u"北京大学出版社", u"301", u"110000"},
    {u"上海", u"上海人民出版社", u"208", u"310000"},  {u"上海", u"复旦大学出版社", u"309", u"310000"},
    {u"上海", u"上海古籍出版社", u"5325", u"310000"}, {u"上海", u"上海科学技术出版社", u"5323", u"310000"},
    {u"南京", u"南京大学出版社", u"305", u"320000"},  {u"南京", u"江苏科学技术出版社", u"5345", u"320000"},
    {u"杭州", u"浙江大学出版社", u"308", u"330000"},  {u"武汉", u"武汉大学出版社", u"307", u"420000"},
    {u"武汉", u"湖北人民出版社", u"216", u"420000"},  {u"广州", u"中山大学出版社", u"306", u"440000"},
    {u"成都", u"四川大学出版社", u"5614", u"510000"}, {u"重庆", u"重庆出版社", u"5366", u"500000"},
    {u"西安", u"陕西人民出版社", u"224", u"610000"},  {u"长沙", u"湖南科学技术出版社", u"5357", u"430000"},
    {u"沈阳", u"辽宁教育出版社", u"5382", u"210000"}, {u"济南", u"齐鲁书社", u"5333", u"370000"},
});

inline constexpr auto seriesTitles = std::to_array<QStringView>({
    u"高等学校教材",
    u"二十一世纪课程教材",
    u"青年文库",
    u"农家书架",
    u"职业教育系列丛书",
    u"当代学术译丛",
    u"百科小丛书",
    u"国家重点图书",
    u"研究生用书",
    u"地方文献丛刊",
    u"学科前沿丛书",
    u"自学考试用书",
});

// Sentences of summaries; %1 is replaced by the topic.
inline constexpr auto sentences = std::to_array<QStringView>({
    u"本书从%1的基本概念讲起，依次说明其原理、方法和应用。",
    u"作者根据多年讲授%1的经验，把难点分散到各章之中。",
    u"书中材料以近二十年的成果为主，旧说只在必要处提及。",
    u"每章之后附有习题和参考书目，书末给出部分答案。",
    u"全书分上下两编，上编讲理论，下编讲实践。",
    u"为便于自学，重要的结论都配有图表和例子。",
    u"本书可作大专院校有关专业的教材，也可供%1工作者参考。",
    u"修订时增写了三章，并改正了初版中的疏漏。",
    u"书中比较了国内外%1的不同学派，指出各家的长处与局限。",
    u"附录收有常用数据、术语对照和人名索引。",
    u"内容深入浅出，读者只需具备中学程度的知识。",
    u"作者对%1今后的发展提出了自己的看法。",
});

inline constexpr auto notes = std::to_array<QStringView>({
    u"版权页英文题名略",
    u"有插图",
    u"书后附索引",
    u"据第二版重印",
    u"封面题“修订本”",
    u"与光盘配套发行",
});

} // namespace tools
