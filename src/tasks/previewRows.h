// The changes of a preview as a table: all of them or those of one kind.
#pragma once

#include "platform/tableSource.h"
#include "tasks/changePreview.h"

namespace tasks {

class PreviewRows final : public platform::TableSource {
public:
    enum Column { WantedColumn, RecordColumn, TitleColumn, FieldColumn, BeforeColumn, AfterColumn };
    static constexpr QStringView headings = u"改|记录|题名|字段|改前|改后";
    static constexpr QStringView wanted = u"✓";

    // `preview` may be null; there are then no rows.
    explicit PreviewRows(std::shared_ptr<ChangePreview> preview = nullptr)
        : m_preview(std::move(preview)) {}

    // A kind is an index of ChangePreview::counts(), or allSteps: the changes that the steps make.
    static constexpr int allSteps = -1;
    void choose(int kind);
    void grow(); // adds the changes that the preview has found since

    int rowCount() const override { return int(m_shown.size()); }
    int columnCount() const override { return AfterColumn + 1; }
    QString text(int row, int column) const override;

    quint32 id(int row) const { return m_shown.at(size_t(row)); }
    const Change &change(int row) const { return m_preview->change(id(row)); }
    // Returns the content before or after the change in full.
    QString content(int row, Column column) const;

private:
    bool isShown(const ChangePreview::Mark &mark) const;

    std::shared_ptr<ChangePreview> m_preview;
    int m_kind = allSteps;
    size_t m_seen = 0; // changes of the preview
    std::vector<quint32> m_shown;
};

} // namespace tasks
