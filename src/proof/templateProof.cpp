#include "proof/templateProof.h"
#include "marc/configurationFiles.h"
#include "platform/codepage936.h"
#include "platform/paths.h"
#include "platform/textFile.h"
#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;
using platform::LineReader;

namespace proof {

namespace {

// Finds the first field with a tag, and the subfields of a field, without a search for each rule.
class FirstFields {
public:
    explicit FirstFields(const marc::FieldRows &rows)
        : m_rows(rows)
        , m_end(size_t(rows.size())) {
        m_byTag.fill(-1);
        int end = int(rows.size());
        for (int i = int(rows.size()) - 1; i >= 0; --i) {
            m_end[size_t(i)] = end;
            if (marc::isFieldRow(rows[i]))
                end = i;
            if (const int number = tagNumber(rows[i].identifier); number >= 0)
                m_byTag[size_t(number)] = i;
        }
    }

    // Returns the index of the first row with that identifier, or -1.
    qsizetype find(const QString &tag) const {
        if (const int number = tagNumber(tag); number >= 0)
            return m_byTag[size_t(number)];
        const auto found = std::ranges::find(m_rows, tag, &marc::FieldRow::identifier);
        return found == m_rows.end() ? -1 : found - m_rows.begin();
    }
    // Returns the rows after that one up to the next field row.
    std::span<const marc::FieldRow> subfields(qsizetype field) const {
        return std::span(m_rows).subspan(size_t(field + 1), size_t(m_end[size_t(field)] - field - 1));
    }

private:
    // Returns the number of a tag of three digits, or -1.
    static int tagNumber(const QString &tag) {
        int number = tag.size() == 3 ? 0 : -1;
        for (qsizetype i = 0; number >= 0 && i < tag.size(); ++i)
            number = tag[i] >= u'0' && tag[i] <= u'9' ? number * 10 + (tag[i].unicode() - u'0') : -1;
        return number;
    }

    const marc::FieldRows &m_rows;
    std::array<qint32, 1000> m_byTag;
    std::vector<int> m_end; // of each row: the next field row, or the number of rows
};

bool hasCode(const marc::FieldRow &row, QChar code) {
    return row.identifier.endsWith(code);
}

// Returns the fault of the subfield as the end of its text; empty if there is none.
using Check = QStringView (*)(std::span<const marc::FieldRow> subfields, QChar code);

QStringView mustBeFilled(std::span<const marc::FieldRow> subfields, QChar code) {
    const auto found = std::ranges::find_if(subfields, [code](const auto &row) { return hasCode(row, code); });
    if (found == subfields.end())
        return u"子字段(必备子字段)不存在";
    return found->value.isEmpty() ? QStringView(u"子字段(必备子字段)内容不能为空值") : QStringView();
}

QStringView mustNotRepeat(std::span<const marc::FieldRow> subfields, QChar code) {
    const auto count = std::ranges::count_if(subfields, [code](const auto &row) { return hasCode(row, code); });
    return count > 1 ? QStringView(u"子字段(不可重复子字段)重复") : QStringView();
}

struct Section {
    QStringView header; // the whole line
    Check check;
};

constexpr auto sections = std::to_array<Section>({
    {u"[必备子字段]", mustBeFilled},
    {u"[不能重复的子字段]", mustNotRepeat},
});

bool endsSection(const QString &line) {
    return line.isEmpty() || (line.startsWith(u'[') && line.endsWith(u']'));
}

} // namespace

// The line that ends a section is consumed, so that a header in its place starts no section. Of a rule, only the first
// three characters and the last one count; shorter lines are ignored.
platform::Result<TemplateRules> TemplateRules::read(const QString &folder) {
    auto reader = LineReader::open(folder + marc::templateFile);
    if (!reader) {
        return platform::Failure{u"无法打开配置文件【"_s + folder + marc::templateFile + u"】：" +
                                     reader.failure().description,
                                 reader.failure().number};
    }
    TemplateRules rules;
    for (size_t kind = 0; kind < sections.size(); ++kind) {
        const QByteArray header = platform::encode(sections[kind].header);
        reader.value().rewind();
        while (!reader.value().atEnd()) {
            if (reader.value().readLine() != header)
                continue;
            while (!reader.value().atEnd()) {
                const QString line = platform::decode(reader.value().readLine());
                if (endsSection(line))
                    break;
                if (line.size() >= 3)
                    rules.m_references[kind].push_back({line.first(3), line.back()});
            }
        }
    }
    return rules;
}

std::vector<Fault> TemplateRules::proof(const marc::FieldRows &rows) const {
    const FirstFields fields(rows);
    std::vector<Fault> faults;
    for (size_t kind = 0; kind < sections.size(); ++kind) {
        for (const auto &[tag, code] : m_references[kind]) {
            const qsizetype field = fields.find(tag);
            if (field < 0)
                continue;
            if (const QStringView fault = sections[kind].check(fields.subfields(field), code); !fault.isEmpty())
                faults.push_back({FaultKind::Subfield, tag, field, tag + u"字段的" + code + fault});
        }
    }
    return faults;
}

// The check is for the field list, but the box names the template: users know this box.
QString templateComplaint(const QString &folder) {
    if (platform::fileExists(folder + marc::fieldListFile))
        return {};
    return marc::configurationComplaint(folder, marc::templateFile, u"】丢失。");
}

platform::Result<TemplateProof> proofTemplate(const marc::FieldRows &rows, const QString &folder) {
    if (const QString complaint = templateComplaint(folder); !complaint.isEmpty())
        return TemplateProof{{}, complaint};
    const auto rules = TemplateRules::read(folder);
    if (!rules)
        return rules.failure();
    return TemplateProof{rules.value().proof(rows), {}};
}

} // namespace proof
