#include "tidy/windows/factsLabel.h"
#include "platform/paths.h"
#include "widgets/styleTokens.h"
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tidy {

FactsLabel::FactsLabel(const QString &objectName, QWidget *parent)
    : QLabel(parent)
    , m_slices(
          std::chrono::milliseconds(0), [this] { return step(); }, [this](bool more) { report(more); }) {
    setObjectName(objectName);
    setWordWrap(true);
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMinimumHeight(2 * fontMetrics().lineSpacing()); // so that the window does not change when facts appear
}

FactsLabel::Stand FactsLabel::standOf(const QString &path) {
    const QFileInfo file(path);
    return file.exists() ? Stand{file.size(), file.lastModified()} : Stand();
}

void FactsLabel::lookAt(const QString &path) {
    m_path = path;
    look();
}

void FactsLabel::lookAgain() {
    if (standOf(m_path) != m_stand)
        look();
}

void FactsLabel::look() {
    stop();
    m_stand = standOf(m_path);
    tell({});
    if (!platform::fileExists(m_path))
        return;
    auto survey = marc::FileSurvey::open(m_path);
    if (!survey)
        return tell({{survey.failure().description, true}});
    m_survey = std::move(survey).value();
    m_slices.start();
}

void FactsLabel::hurry() {
    constexpr int slices = 8;
    for (int i = 0; i < slices && m_survey; ++i)
        report(m_slices.advance());
}

void FactsLabel::stop() {
    m_slices.stop();
    if (m_survey)
        m_stand = {}; // an incomplete survey must be repeated
    m_survey.reset();
}

void FactsLabel::tell(const QList<marc::FactLine> &lines) {
    QStringList plain;
    QStringList inked;
    const QString ink = widgets::colour(widgets::Colour::WarningInk, palette()).name();
    for (const marc::FactLine &line : lines) {
        plain.append(line.text);
        inked.append(line.isWarning ? u"<span style=\"color:%1\">%2</span>"_s.arg(ink, line.text.toHtmlEscaped())
                                    : line.text.toHtmlEscaped());
    }
    setText(inked.join(u'　'));
    setAccessibleName(plain.join(u'　'));
}

bool FactsLabel::step() {
    const platform::Result<bool> more = m_survey->step();
    m_fault = more ? std::nullopt : std::optional(more.failure());
    return more && more.value();
}

void FactsLabel::report(bool more) {
    if (m_fault) {
        stop();
        return tell({{m_fault->description, true}});
    }
    const marc::FileFacts facts = m_survey->facts();
    marc::FactLines told = marc::describe(facts);
    if (more) {
        const int percent = int(m_survey->position() * 100 / std::max<qint64>(1, m_survey->size()));
        told.lines.prepend({u"正在查看，%1%"_s.arg(percent)});
        return tell(told.lines);
    }
    m_survey.reset();
    stop();
    tell(told.lines);
    Q_EMIT looked(facts, told.disagree);
}

} // namespace tidy
