#include "support/scriptedHost.h"

using namespace platform;

ScriptedHost::ScriptedHost()
    : clock(QDate(2026, 3, 9), QTime(8, 5, 7))
    , m_settings(m_directory.path())
    , m_state(m_directory.filePath(u"state"_s)) {
    folder = QDir::toNativeSeparators(m_directory.path());
}

ScriptedHost::~ScriptedHost() {
    EXPECT_TRUE(m_answers.isEmpty()) << m_answers.size() << " prepared answers were not used";
    EXPECT_TRUE(m_files.isEmpty()) << "prepared files were not used: " << m_files.join(u' ').toStdString();
}

QStringList ScriptedHost::texts() const {
    QStringList result;
    for (const Box &box : boxes)
        result.append(box.text);
    return result;
}

Box ScriptedHost::lastBox() const {
    return boxes.isEmpty() ? Box{} : boxes.last();
}

Answer ScriptedHost::show(const Box &box) {
    boxes.append(box);
    if (onShow)
        onShow();
    if (box.buttons == Buttons::Ok)
        return Answer::Ok;
    if (m_answers.isEmpty()) {
        ADD_FAILURE() << "unexpected question: " << box.text.toStdString();
        return Answer::No;
    }
    return m_answers.takeFirst();
}

bool ScriptedHost::showWithTick(const Box &box, const QString &tick) {
    EXPECT_FALSE(tick.isEmpty());
    show(box);
    return checksTick;
}

QString ScriptedHost::chooseFile(const FileDialog &dialog) {
    dialogs.append(dialog);
    if (m_files.isEmpty()) {
        ADD_FAILURE() << "unexpected file dialog: " << dialog.title.toStdString();
        return {};
    }
    return m_files.takeFirst();
}

bool ScriptedHost::openInShell(const QString &target) {
    opened.append(target);
    return shellWorks;
}

void ScriptedHost::yield() {
    if (onYield)
        onYield();
}
