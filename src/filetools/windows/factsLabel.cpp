#include "filetools/windows/factsLabel.h"
#include "platform/paths.h"
#include <QTimerEvent>

using namespace Qt::StringLiterals;

namespace filetools {

FactsLabel::FactsLabel(const QString &objectName, QWidget *parent)
    : QLabel(parent) {
    setObjectName(objectName);
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMinimumHeight(2 * fontMetrics().lineSpacing()); // the window does not jump when they come
}

void FactsLabel::lookAt(const QString &path) {
    stop();
    clear();
    if (!platform::fileExists(path))
        return;
    auto survey = marc::FileSurvey::open(path);
    if (!survey) {
        tell(survey.failure().description);
        return;
    }
    m_survey = std::move(survey).value();
    m_slices.start(0, this);
}

void FactsLabel::stop() {
    m_slices.stop();
    m_survey.reset();
}

void FactsLabel::tell(const QString &text) {
    setText(text);
    setAccessibleName(text);
}

void FactsLabel::timerEvent(QTimerEvent *event) {
    if (event->timerId() != m_slices.timerId()) {
        QLabel::timerEvent(event);
        return;
    }
    const platform::Result<bool> more = m_survey->step();
    if (!more) {
        stop();
        tell(more.failure().description);
        return;
    }
    const marc::FileFacts facts = m_survey->facts();
    const marc::FactLines told = marc::describe(facts);
    if (more.value()) {
        const int percent = int(m_survey->position() * 100 / std::max<qint64>(1, m_survey->size()));
        tell(u"正在查看，%1%　"_s.arg(percent) + told.lines.join(u'　'));
        return;
    }
    stop();
    tell(told.lines.join(u'　'));
    Q_EMIT looked(facts, told.disagree);
}

} // namespace filetools
