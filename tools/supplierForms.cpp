#include "tools/supplierForms.h"
#include "platform/codepage936.h"
#include <QStringList>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

constexpr quint32 oneRecordIn = 3;

QString fullWidth(const QString &text) {
    QString full = text;
    for (QChar &c : full)
        if (c.isDigit())
            c = QChar(char16_t(c.unicode() + u'０' - u'0'));
    return full;
}

QString withBlanks(const QString &text) {
    return u' ' + text.first(text.size() / 2) + (text.size() % 2 ? u"" : u"　 ") + text.sliced(text.size() / 2) + u"  ";
}

QString withoutHyphens(const QString &isbn) {
    return QString(isbn).remove(u'-');
}

// "CNY28.00" in another form, chosen by the amount.
QString price(const QString &text) {
    const QString amount = text.sliced(3);
    const QStringList forms{amount + u"元",
                            u"￥" + amount,
                            u"RMB " + amount,
                            amount,
                            u"人民币" + amount + u"元",
                            amount.section(u'.', 0, 0) + u"元"};
    return forms[amount.section(u'.', 0, 0).toInt() % forms.size()];
}

// "1996.3" with the month in two digits.
QString dateInWords(const QString &text) {
    return text.section(u'.', 0, 0) + u"年" + text.section(u'.', 1).rightJustified(2, u'0') + u"月";
}

struct Alteration {
    QStringView tag;
    char16_t code;
    QString (*make)(const QString &text);
};
constexpr auto alterations = std::to_array<Alteration>({
    {u"010", u'a', withoutHyphens},
    {u"010", u'a', fullWidth},
    {u"010", u'd', price},
    {u"200", u'a', withBlanks},
    {u"210", u'a', [](const QString &text) -> QString { return u"（" + text + u"）"; }},
    {u"210", u'a', [](const QString &text) -> QString { return text + u" :"; }},
    {u"210", u'c', [](const QString &text) -> QString { return text + u"，"; }},
    {u"210", u'd', dateInWords},
    {u"215", u'a', [](const QString &text) -> QString { return text.chopped(1) + u" p."; }},
    {u"215", u'a', fullWidth},
    {u"215", u'd', [](const QString &text) -> QString { return text.chopped(2) + u" 厘米"; }},
    {u"225", u'v', fullWidth},
    {u"606", u'a', withBlanks},
});

} // namespace

QByteArrayView SupplierForms::apply(QByteArrayView record) {
    m_record.take(platform::decode(record));
    alterTexts();
    alterFields();
    const QString why = m_writer.make(m_record);
    Q_ASSERT(why.isEmpty());
    return m_writer.bytes();
}

void SupplierForms::alterTexts() {
    for (const Alteration &alteration : alterations) {
        if (!m_random.oneIn(oneRecordIn))
            continue;
        const auto field = std::ranges::find(m_record.fields, alteration.tag, &marc::Field::tag);
        if (field == m_record.fields.end())
            continue;
        int index = 0;
        for (const marc::Subfield &subfield : field->subfields()) {
            if (subfield.code == QStringView(&alteration.code, 1)) {
                field->setSubfield(index, alteration.make(subfield.text.toString()));
                break;
            }
            ++index;
        }
    }
}

void SupplierForms::alterFields() {
    std::vector<marc::Field> &fields = m_record.fields;
    const auto find = [&](QStringView tag) { return std::ranges::find(fields, tag, &marc::Field::tag); };
    if (const auto field = find(u"606"); m_random.oneIn(oneRecordIn) && field != fields.end())
        field->insertSubfield(99, u"x", {});
    if (const auto field = find(u"701"); m_random.oneIn(oneRecordIn) && field != fields.end()) {
        const marc::Field copy = *field;
        fields.insert(field, copy);
    }
    if (const auto field = find(u"330"); m_random.oneIn(oneRecordIn) && field != fields.end())
        std::rotate(field, field + 1, fields.end());
}

} // namespace tools
