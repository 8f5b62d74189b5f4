#include "proof/templateProof.h"
#include "marc/configurationFiles.h"
#include "platform/codepage936.h"
#include "platform/paths.h"
#include "platform/textFile.h"
#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;
using platform::LineReader;

namespace proof {

namespace {

struct Reference {
    QString tag;
    QChar code;
};

struct Field {
    qsizetype element;
    std::span<const marc::FieldRow> subfields; // the rows up to the next field row
};

// Returns the first field `tag`; std::nullopt if the record has no such field.
std::optional<Field> firstField(const marc::FieldRows &rows, const QString &tag) {
    const auto field = std::ranges::find(rows, tag, &marc::FieldRow::identifier);
    if (field == rows.end())
        return std::nullopt;
    const auto end = std::find_if(field + 1, rows.end(), marc::isFieldRow);
    return Field{field - rows.begin(), std::span(std::to_address(field + 1), size_t(end - field - 1))};
}

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

// The first three characters and the last one; those between are ignored.
std::optional<Reference> referenceOf(const QString &line) {
    if (line.size() < 3)
        return std::nullopt;
    return Reference{line.first(3), line.back()};
}

// Returns the faults found by all sections of one kind. The line that ends a section is consumed, so that a header in
// its place starts no section.
std::vector<Fault> proofSections(LineReader &reader, const Section &section, const marc::FieldRows &rows) {
    const QByteArray header = platform::encode(section.header);
    std::vector<Fault> faults;
    while (!reader.atEnd()) {
        if (reader.readLine() != header)
            continue;
        while (!reader.atEnd()) {
            const QString line = platform::decode(reader.readLine());
            if (endsSection(line))
                break;
            const std::optional<Reference> wanted = referenceOf(line);
            const auto field = wanted ? firstField(rows, wanted->tag) : std::nullopt;
            if (!field)
                continue;
            if (const QStringView fault = section.check(field->subfields, wanted->code); !fault.isEmpty())
                faults.push_back(
                    {FaultKind::Subfield, wanted->tag, field->element, wanted->tag + u"字段的" + wanted->code + fault});
        }
    }
    return faults;
}

} // namespace

platform::Result<TemplateProof> proofTemplate(const marc::FieldRows &rows, const QString &folder) {
    // The check is for the field list, but the box names the template: users know this box.
    if (!platform::fileExists(folder + marc::fieldListFile))
        return TemplateProof{{}, marc::configurationComplaint(folder, marc::templateFile, u"】丢失。")};

    TemplateProof result;
    auto reader = LineReader::open(folder + marc::templateFile);
    if (!reader) {
        return platform::Failure{u"无法打开配置文件【"_s + folder + marc::templateFile + u"】：" +
                                     reader.failure().description,
                                 reader.failure().number};
    }
    for (const Section &section : sections) {
        reader.value().rewind();
        std::ranges::move(proofSections(reader.value(), section, rows), std::back_inserter(result.faults));
    }
    return result;
}

} // namespace proof
