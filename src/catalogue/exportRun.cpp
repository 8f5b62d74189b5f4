#include "catalogue/exportRun.h"
#include "catalogue/exportRecord.h"
#include "catalogue/listStatements.h"
#include "catalogue/listTexts.h"
#include "platform/fileFilters.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

constexpr QStringView boxTitle = u"提示";

// Returns the value, or std::nullopt on failure, which is ignored.
template <class T>
std::optional<T> valueOf(platform::Result<T> result) {
    return result ? std::optional<T>(std::move(result).value()) : std::nullopt;
}

} // namespace

ExportRun::ExportRun(ExportSurface &list, platform::Host &host, const database::SessionState &state)
    : m_list(list)
    , m_host(host)
    , m_state(state) {}

void ExportRun::daochuMarc() {
    const QString name = chooseName();
    if (name.isEmpty())
        return;
    m_list.showProgress({});
    m_connection = valueOf(database::Connection::open(m_state.links, m_state.connectionString));
    if (auto file = platform::ByteWriter::create(name))
        m_file.emplace(std::move(file).value());
    const int row = exportRows();
    if (m_ended)
        return;
    end();
    // After a stop, `row - 1` is one less than the number of records written; after a full run it is that number.
    m_host.tell(u"本次操作成功导出" + QString::number(row - 1) + u"条数据\r\n以marc格式保存在文件" + name + u"中。",
                boxTitle.toString());
}

QString ExportRun::chooseName() {
    const QString name = m_host.chooseFile({.title = u"导出书库数据为marc格式"_s,
                                            .filter = platform::filters::exportedRecords.toString(),
                                            .kind = platform::FileDialogKind::Save});
    if (name.isEmpty()) {
        m_host.tell(u"请输入要保存marc数据的文件名！"_s, boxTitle.toString());
        return {};
    }
    // The file is created under the untrimmed name; neither of the two names may exist.
    if (platform::fileExists(platform::trimBlanks(name)) || platform::fileExists(name)) {
        m_host.tell(u"选择的路径下已经存在输入的文件名。请重新输入marc数据文件名！"_s, boxTitle.toString());
        return {};
    }
    return name;
}

int ExportRun::exportRows() {
    int row = 1;
    for (; row < m_list.rowCount(); ++row) {
        const QString zskid = m_list.key(row);
        if (zskid.isEmpty())
            break;
        exportRow(zskid);
        m_list.showProgress(progressText(row, m_list.rowCount() - 1));
        m_host.yield();
        if (m_ended || askedToStop(row))
            break;
    }
    return row;
}

void ExportRun::exportRow(const QString &zskid) {
    CatalogueRow row;
    if (m_connection) {
        if (const auto result = m_connection->query(exportStatement(zskid)))
            row = readCatalogueRow(*result.value());
    }
    if (m_file)
        (void)m_file->writeLine(exportRecord(row));
}

bool ExportRun::askedToStop(int row) {
    if (!m_list.stopPressed())
        return false;
    handOver();
    if (m_host.ask(u"已经成功导出" + QString::number(row) + u"条数据。确定要终止导出吗？", boxTitle.toString()))
        return true;
    m_list.goOn();
    return false;
}

void ExportRun::handOver() {
    if (m_file)
        (void)m_file->flush();
}

void ExportRun::end() {
    m_ended = true;
    if (m_file)
        (void)m_file->close();
    m_file.reset();
    database::closeConnection(m_connection);
}

} // namespace catalogue
