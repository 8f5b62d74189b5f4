// Performs the monkey's actions: one random action at a time, on the window that is in front.
#pragma once

#include "tour/tourDriver.h"
#include <QProcess>
#include <random>

namespace tour {

class MonkeyHands {
public:
    MonkeyHands(TourDriver &driver, unsigned seed);

    void act();
    // Closes all windows, stopping runs with their stop buttons, until only the main window is open. Calls `help`
    // between the steps.
    void tidyUp(const std::function<void()> &help);

    int acts() const { return m_acts; }
    QString lastActs() const { return m_last.join(u'\n'); } // for finding the cause of a failure

private:
    // The window that has the keyboard focus.
    struct Front {
        quintptr id = 0; // 0: no window of the program
        QString name;
        QString question; // the text of a message box
        bool hasAnswers = false;
        bool isFileDialog = false;
        bool isPreview = false;
        bool isMain = false;
        bool hasPopup = false;
        QRect place;
    };
    // All random numbers of one action, drawn before the window is examined: the machine's speed does not affect them.
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
    bool secondRuns(); // closes the box of the second start as soon as it opens
    void close(const Front &front);

    TourDriver &m_driver;
    std::mt19937 m_dice;
    QProcess m_second;
    QStringList m_last;
    int m_acts = 0;
    int m_alone = 0; // consecutive checks that found no window with the keyboard
    int m_names = 0;
};

} // namespace tour
