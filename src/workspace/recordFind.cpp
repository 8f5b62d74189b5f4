#include "workspace/recordFind.h"
#include "platform/numbers.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr std::chrono::milliseconds slice(8);
}

RecordFind::RecordFind(const marc::PreReadStore &records, std::function<int()> currentRow)
    : m_records(records)
    , m_currentRow(std::move(currentRow))
    , m_slices(
          slice, [this] { return m_search->step(); },
          [this](bool more) {
              Q_EMIT changed();
              if (!more && m_owed)
                  walk(*std::exchange(m_owed, std::nullopt));
          }) {}

void RecordFind::forget() {
    m_slices.stop();
    m_search.reset();
    m_owed.reset();
    Q_EMIT changed();
}

void RecordFind::look(Place place, const QString &text) {
    m_place = place;
    m_text = text;
    forget();
    if (place == Place::Number || text.isEmpty())
        return;
    m_search = std::make_unique<marc::RecordSearch>(
        m_records, text, place == Place::Title ? marc::SearchPlace::Title : marc::SearchPlace::WholeRecord);
    m_slices.start();
}

void RecordFind::goToNumber() {
    const auto number = platform::toInt32(m_text);
    if (number && *number >= 1 && *number <= m_records.rowCount())
        Q_EMIT wanted(*number - 1);
    else
        Q_EMIT noSuchNumber();
}

void RecordFind::walk(Direction direction) {
    if (m_place == Place::Number)
        return goToNumber();
    if (!m_search)
        look(m_place, m_text);
    else if (!m_slices.isActive())
        m_slices.start(); // more records may have been listed
    if (m_slices.isActive() && m_slices.advance()) {
        m_owed = direction;
        return;
    }
    const int current = m_currentRow();
    const int row = !m_search                      ? -1
                    : direction == Direction::Next ? m_search->after(current)
                                                   : m_search->before(current);
    if (row >= 0)
        Q_EMIT wanted(row);
    Q_EMIT changed();
}

QString RecordFind::words() const {
    if (!m_search)
        return {};
    const qsizetype hits = qsizetype(m_search->hits().size());
    if (hits == 0)
        return m_slices.isActive() ? u"正在查找…"_s : u"没有找到"_s;
    const QString all = QString::number(hits) + (m_slices.isActive() ? u"…" : u"");
    const int number = m_search->number(m_currentRow());
    return number ? u"第 %1 / %2 条"_s.arg(QString::number(number), all) : u"共 %1 条"_s.arg(all);
}

} // namespace workspace
