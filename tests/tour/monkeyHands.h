// The hands of the monkey: one thing at a time, chosen by dice, done to whatever window is in front.
#pragma once

#include "tour/tourDriver.h"
#include <QProcess>
#include <random>

namespace tour {

class MonkeyHands {
public:
    MonkeyHands(TourDriver &driver, unsigned seed);

    void act();
    // Closes all that is open, the runs at their stop buttons, until the main window stands alone. `help` is called
    // between the steps.
    void tidyUp(const std::function<void()> &help);

    int acts() const { return m_acts; }
    QString lastActs() const { return m_last.join(u'\n'); } // for whoever looks for the cause of a failure

private:
    // The window that has the keyboard, as the hands see it.
    struct Front {
        quintptr id = 0; // 0: none of the program's
        QString name;
        QString question; // the text of a box
        bool hasAnswers = false;
        bool isFileDialog = false;
        bool isPreview = false;
        bool isMain = false;
        bool hasPopup = false;
        QRect place;
    };
    // All numbers of one act, thrown before anything is looked at, so that the dice do not hang on the machine's pace.
    struct Throw {
        int kind;
        quint32 choice;
        int x;
        int y;
    };

    Front front() const;
    void actOn(const Front &front, const Throw &dice);
    void answer(const Front &front, bool yes);
    void answerFile(const Throw &dice);
    void note(const Front &front, const QString &done);
    void press(const QString &chord);
    void typeText(const QString &text);
    void click(const Front &front, const Throw &dice);
    void meetNobody();
    void startSecond();
    void closeFront(const Front &front);
    void hearTheManager(const Front &front);
    bool secondRuns(); // closes its box, as soon as that comes up
    void close(const Front &front);

    TourDriver &m_driver;
    std::mt19937 m_dice;
    QProcess m_second;
    QStringList m_last;
    int m_acts = 0;
    int m_alone = 0; // looks that found no window with the keyboard
    int m_names = 0;
};

} // namespace tour
