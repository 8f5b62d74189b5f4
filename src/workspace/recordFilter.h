// Which records of the list are shown: all, those with a remark, or those changed and not imported. The filter keeps
// only the choice; the rows are read from their owners each time, so that they cannot be out of date.
#pragma once

#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace workspace {

class RecordFilter {
public:
    enum class Kind { All, Remarked, Changed };
    static constexpr std::array<QStringView, 3> names = {u"全部", u"只看有问题的", u"只看改过的"};

    // Both return rows of the list in ascending order.
    struct Sources {
        std::function<std::vector<int>()> remarked;
        std::function<std::vector<int>()> changed;
    };
    explicit RecordFilter(Sources sources);

    void choose(Kind kind) { m_kind = kind; }
    Kind kind() const { return m_kind; }
    std::optional<std::vector<int>> rows() const; // std::nullopt: all

    // Returns the name of a kind; for the chosen filter followed by the number of its rows.
    QString caption(Kind kind, const std::optional<std::vector<int>> &rows) const;
    // Returns the message for a chosen filter that shows no record. `proved`: there is a list of remarks.
    QString emptyWords(bool proved) const;

private:
    Sources m_sources;
    Kind m_kind = Kind::All;
};

} // namespace workspace
