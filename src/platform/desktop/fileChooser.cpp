#include "platform/desktop/fileChooser.h"
#include "platform/desktop/screenSize.h"
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTreeView>
#include <array>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

enum Column { NameColumn, SizeColumn, KindColumn, DateColumn };

// Shows sizes and dates in Chinese; Qt formats them by the locale of the session.
class ChineseFiles final : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    QVariant data(const QModelIndex &index, int role) const override {
        const auto *files = static_cast<const QFileSystemModel *>(sourceModel());
        const QModelIndex file = mapToSource(index);
        if (role == Qt::DisplayRole && index.column() == DateColumn)
            return QLocale().toString(files->lastModified(file), u"yyyy-MM-dd HH:mm");
        if (role == Qt::DisplayRole && index.column() == SizeColumn && !files->isDir(file))
            return QLocale().formattedDataSize(files->size(file), 1, QLocale::DataSizeTraditionalFormat);
        return QSortFilterProxyModel::data(index, role);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        constexpr auto headings = std::to_array<QStringView>({u"名称", u"大小", u"类型", u"修改时间"});
        if (role == Qt::DisplayRole && orientation == Qt::Horizontal && size_t(section) < headings.size())
            return headings[size_t(section)].toString();
        return QSortFilterProxyModel::headerData(section, orientation, role);
    }

    void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }
};

// Converts "label|pattern|label|pattern" to name filters of Qt. The labels contain brackets of their own, so each
// pattern is appended in a last pair of brackets, which the dialog does not show; "*.*" means every file.
QStringList nameFilters(const QString &filter) {
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == u"*.*" ? u"*"_s : parts[i + 1];
        filters.append(parts[i] + u" (" + pattern + u')');
    }
    return filters;
}

// The name column takes the width that the others leave.
void fitColumns(QFileDialog &window) {
    constexpr int sideBar = 14, files = 62; // in characters
    const int character = window.fontMetrics().averageCharWidth();
    if (auto *tree = window.findChild<QTreeView *>(u"treeView"_s)) {
        tree->header()->setStretchLastSection(false);
        for (const int column : {SizeColumn, KindColumn, DateColumn})
            tree->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
        tree->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
        tree->header()->hideSection(KindColumn); // the file suffix shows the kind
    }
    if (auto *splitter = window.findChild<QSplitter *>(u"splitter"_s))
        splitter->setSizes({sideBar * character, files * character});
}

// The toolkit names neither list; a screen reader would read only the current entry.
void nameLists(const QFileDialog &window) {
    if (auto *folders = window.findChild<QComboBox *>(u"lookInCombo"_s))
        folders->setAccessibleDescription(u"查看的文件夹"_s);
    if (auto *kinds = window.findChild<QComboBox *>(u"fileTypeCombo"_s))
        kinds->setAccessibleDescription(u"文件类型"_s);
}

void prepareWidgets(QFileDialog &window) {
    window.setProxyModel(new ChineseFiles(&window));
    fitColumns(window);
    nameLists(window);
    // Wide enough for a name, a size and a date.
    const QSize wanted(window.fontMetrics().averageCharWidth() * 76, window.fontMetrics().height() * 28);
    window.resize(wanted.boundedTo(usableScreenSize(&window)));
}

// A dialog of the desktop has no widgets of Qt.
bool isOfTheDesktop(const QFileDialog &window) {
    return window.findChild<QTreeView *>() == nullptr;
}

} // namespace

QString chooseFileIn(const FileDialog &dialog, const QString &start, QWidget *parent) {
    QFileDialog window(parent, dialog.title, start);
    window.setOption(QFileDialog::HideNameFilterDetails);
    if (!dialog.filter.isEmpty())
        window.setNameFilters(nameFilters(dialog.filter));
    if (dialog.kind == FileDialogKind::Save) {
        window.setAcceptMode(QFileDialog::AcceptSave);
        window.setOption(QFileDialog::DontConfirmOverwrite);
    } else if (dialog.kind == FileDialogKind::Folder) {
        window.setFileMode(QFileDialog::Directory);
        window.setOption(QFileDialog::ShowDirsOnly);
    } else {
        window.setFileMode(QFileDialog::ExistingFile);
    }
    if (!isOfTheDesktop(window))
        prepareWidgets(window);
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return {};
    return QDir::toNativeSeparators(QDir::cleanPath(window.selectedFiles().constFirst()));
}

} // namespace platform
