#include "marc/fitText.h"
#include "platform/codepage936.h"
#include <algorithm>

namespace marc {

namespace {

using Characters = QList<char32_t>;

bool holdsAll(TargetForm form, const QString &text) {
    if (form == TargetForm::GbkIso)
        return platform::isEncodable(text);
    return form == TargetForm::Utf8Iso ||
           std::ranges::all_of(text, [](QChar unit) { return canHold(TargetForm::MarcXml, unit.unicode()); });
}

// Returns whether the character only controls direction, sorting or the shape of the previous character.
bool isInvisible(char32_t character) {
    const bool isControl = character >= 0x80 && character < 0xA0;
    const bool isVariant =
        (character >= 0xFE00 && character <= 0xFE0F) || (character >= 0xE0100 && character <= 0xE01EF);
    return isControl || isVariant || QChar::category(character) == QChar::Other_Format;
}

// Returns an empty list if the form cannot hold all of the composed text.
Characters composed(TargetForm form, const Characters &cluster) {
    Characters whole;
    QString text;
    for (const char32_t character : cluster)
        text += QStringView(QChar::fromUcs4(character));
    for (const char32_t character : text.normalized(QString::NormalizationForm_C).toUcs4()) {
        if (canHold(form, character))
            whole.append(character);
        else if (!isInvisible(character))
            return {};
    }
    return whole;
}

// Collects what the form can hold of each character with its combining marks.
class Fitting {
public:
    explicit Fitting(TargetForm form)
        : m_form(form) {}

    void add(const Characters &cluster) {
        const auto held = [this](char32_t character) { return canHold(m_form, character); };
        const bool mayCompose = m_form == TargetForm::GbkIso && !std::ranges::all_of(cluster, held);
        const Characters whole = mayCompose ? composed(m_form, cluster) : Characters();
        for (const char32_t character : whole.isEmpty() ? cluster : whole)
            addOne(character);
    }

    QString text;
    Characters lacking;

private:
    void addOne(char32_t character) {
        const bool isGbk = m_form == TargetForm::GbkIso;
        if (canHold(m_form, character)) {
            text += QStringView(QChar::fromUcs4(character)); // does not treat U+FEFF as a byte order mark
        } else if (isGbk && QChar::category(character) == QChar::Separator_Space) {
            text += u' ';
        } else if (!isGbk || !isInvisible(character)) {
            text += u'?';
            lacking.append(character);
        }
    }

    TargetForm m_form;
};

} // namespace

QList<char32_t> fitText(TargetForm form, QString &text) {
    if (holdsAll(form, text))
        return {};
    Fitting fitting(form);
    Characters cluster;
    for (const char32_t character : text.toUcs4()) {
        if (!cluster.isEmpty() && QChar::combiningClass(character) == 0) {
            fitting.add(cluster);
            cluster.clear();
        }
        cluster.append(character);
    }
    fitting.add(cluster);
    text = fitting.text;
    return fitting.lacking;
}

} // namespace marc
