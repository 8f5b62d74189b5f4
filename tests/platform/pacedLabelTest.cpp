#include "platform/widgets/pacedLabel.h"
#include "support/qtPrinters.h"
#include <QElapsedTimer>
#include <QTest>
#include <gtest/gtest.h>

using platform::PacedLabel;

namespace {

// Counts how often the toolkit paints it.
class CountingLabel : public PacedLabel {
public:
    using PacedLabel::PacedLabel;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override {
        ++paints;
        PacedLabel::paintEvent(event);
    }
};

} // namespace

TEST(PacedLabel, HoldsEveryTextAtOnceAndPaintsFewOfThem) {
    CountingLabel label(QStringLiteral("labShuDo"));
    label.resize(300, 20);
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
    label.paints = 0;
    QElapsedTimer clock;
    clock.start();
    int count = 0;
    while (clock.elapsed() < 200) {
        const QString text = QString::number(++count);
        label.setPacedText(text);
        ASSERT_EQ(label.pacedText(), text);
        QCoreApplication::processEvents();
    }
    EXPECT_GE(label.paints, 2);
    EXPECT_LE(label.paints, 20) << "of " << count << " texts";
    label.flush();
    EXPECT_EQ(static_cast<QLabel &>(label).text(), QString::number(count));
}

TEST(PacedLabel, ALongPathNeverWidensItsWindow) {
    PacedLabel label(QStringLiteral("labJinDu"));
    label.setText(QStringLiteral("/资料/").repeated(200));
    EXPECT_LT(label.minimumSizeHint().width(), 400);
    EXPECT_EQ(label.text().size(), 800);
}
