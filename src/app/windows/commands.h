// The commands of the main window: its menus, its toolbar, and the field lists of the two queries.
#pragma once

#include <QStringView>
#include <array>

namespace app {

enum class Command { Import, Export, Maintain, Split, Merge, AboutTool, AboutSystem, Quit, Separator };

struct MenuRow {
    QStringView menuName;
    QStringView menuCaption; // empty: the item belongs to the menu of the previous row
    QStringView itemName;
    QStringView itemCaption;
    Command command;
};

inline constexpr auto menuRows = std::to_array<MenuRow>({
    {u"daorumnu", u"marc数据导入", u"mnuDaoru", u"导入marc数据到套录库", Command::Import},
    {u"daochumnu", u"书库数据导出", u"mnuDaochu", u"导出为marc数据", Command::Export},
    {u"deletemnu", u"套录数据维护", u"mnuDelete", u"维护套录数据", Command::Maintain},
    {u"mnuMarcFile", u"拆分合并机读目录文件", u"ChaiFenFile", u"拆分机读目录文件", Command::Split},
    {u"", u"", u"HeBingFile", u"合并机读目录文件", Command::Merge},
    {u"gongjumnu", u"关于Quelt", u"aboutgongju", u"关于Quelt", Command::AboutTool},
    {u"", u"", u"fenge", u"", Command::Separator},
    {u"", u"", u"mnuHelp", u"关于系统", Command::AboutSystem},
    {u"quitmnu", u"退出系统", u"mnuQuit", u"退出系统", Command::Quit},
});

struct ToolRow {
    QStringView key; // also the tag of the button and the name of its picture
    QStringView caption;
    QStringView tip; // what the command does
    Command command;
};

inline constexpr auto toolRows = std::to_array<ToolRow>({
    {u"daoru", u"marc数据导入", u"打开机读目录文件：预读、校对、修改，导入到套录库", Command::Import},
    {u"daochu", u"书库数据导出", u"查询书库：看明细，打印一览表，导出为 marc 数据", Command::Export},
    {u"delete", u"套录数据维护", u"查询套录库：看卡片，存为机读文件，删除记录", Command::Maintain},
    {u"chaifen", u"拆分文件", u"把一个机读目录文件拆成几个", Command::Split},
    {u"hebing", u"合并文件", u"把几个机读目录文件合成一个", Command::Merge},
    {u"quit", u"退出系统", u"关闭程序，先问一声", Command::Quit},
});

// Three comma-separated lists of corresponding items.
struct QueryLists {
    QStringView columns;
    QStringView labels;
    QStringView kinds;
};

inline constexpr QueryLists catalogueQuery{u"bookname,author,isbn,classcode,lagclass,publisher,pubdate,catatime",
                                           u"书名,著者,ISBN,分类号,语种,出版社,出版日期,入库日期",
                                           u"字符,字符,字符,字符,字符,字符,字符,日期"};

inline constexpr QueryLists storeQuery{u"bookname,author,isbn,classcode,lagclass,publisher,pubdate",
                                       u"书名,著者,ISBN,分类号,语种,出版社,出版日期",
                                       u"字符,字符,字符,字符,字符,字符,字符"};

// Opens the windows of the commands. Each call returns when the modal window is closed.
class CommandWindows {
public:
    virtual ~CommandWindows() = default;
    virtual void selectMarcFile(const QString &file) = 0; // with the file in its box; empty: none
    virtual void tidyFile(const QString &source) = 0;     // likewise
    virtual void fetchRecords() = 0;                      // in other libraries' catalogues
    virtual void showTasks() = 0;                         // without a list of records
    virtual void queryCatalogue(const QueryLists &lists) = 0;
    virtual void queryStore(const QueryLists &lists) = 0;
    virtual void splitFile() = 0;
    virtual void mergeFiles() = 0;
    virtual void showHelp() = 0;
    virtual void showAbout() = 0;
    virtual void showNotice() = 0; // without waiting
    // Returns the stored connection string of the database.
    virtual QString connectionText() const = 0;
    // Call before the process ends: ends the runs in progress.
    virtual void endRuns() = 0;
};

} // namespace app
