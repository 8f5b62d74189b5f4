#include "support/testFolder.h"
#include "widgets/appearance.h"
#include "widgets/deskStyle.h"
#include "widgets/flexGrid.h"
#include "widgets/heading.h"

using namespace widgets;

namespace {

QColor of(Colour name, Scheme scheme) {
    return QColor(colourOf(name, scheme));
}

class StyleTest : public testing::TestWithParam<Scheme> {
protected:
    void atLeast(double wanted, Colour one, Colour other, int row) const {
        EXPECT_GE(contrast(of(one, GetParam()), of(other, GetParam())), wanted) << "row " << row;
    }
};

TEST_P(StyleTest, TextAndEdgesHaveContrast) {
    for (int row = 0; const SurfaceLook &looks : surfaceLooks) {
        EXPECT_EQ(int(looks.surface), row);
        atLeast(textContrast, looks.ink, looks.fill, row);
        if (looks.edge != Colour::Hairline && looks.edge != looks.fill)
            atLeast(edgeContrast, looks.edge, looks.around, row);
        if (looks.fill != Colour::Accent && looks.fill != Colour::AccentHover && looks.fill != Colour::AccentDown)
            atLeast(edgeContrast, Colour::Accent, looks.fill, row); // the focus ring
        ++row;
    }
    for (int row = 0; const InkPair &pair : inkPairs)
        atLeast(pair.least, pair.ink, pair.fill, row++);
}
INSTANTIATE_TEST_SUITE_P(Schemes, StyleTest, testing::Values(Scheme::Light, Scheme::Dark));

TEST(Scheme, DisabledControlsLookDifferent) {
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const QPalette palette = schemePalette(scheme);
        EXPECT_EQ(schemeOf(palette), scheme);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText}) {
            EXPECT_EQ(palette.color(QPalette::Disabled, role), colour(Colour::FaintInk, palette)) << role;
            EXPECT_EQ(palette.color(QPalette::Inactive, role), palette.color(QPalette::Active, role)) << role;
        }
    }
}

TEST(Appearance, WindowsFollowAChangeWhileTheProgramRuns) {
    const TestFolder folder;
    const platform::DeskState state(folder.path());
    FlexGrid grid(QStringLiteral("grid"), 1, 1);
    grid.show();
    const auto isDark = [&grid] {
        QCoreApplication::processEvents();
        return schemeOf(grid.palette()) == Scheme::Dark;
    };
    Appearance appearance(state);
    EXPECT_FALSE(isDark());
    appearance.takeDesktop(true);
    EXPECT_TRUE(isDark());
    appearance.choose(Appearance::Choice::Light);
    EXPECT_FALSE(isDark()) << "the user's choice wins";
    appearance.choose(Appearance::Choice::AsDesktop);
    EXPECT_TRUE(isDark());

    Appearance next(state);
    EXPECT_TRUE(isDark()) << "as the last start, since the answer of the desktop comes later";
    next.takeDesktop(false);
    EXPECT_FALSE(isDark());
    next.choose(Appearance::Choice::Dark);
    Appearance last(state);
    EXPECT_TRUE(isDark()) << "the user's choice is kept";
    last.choose(Appearance::Choice::Light);

    const Heading heading(QStringLiteral("heading"), QStringLiteral("标题"), titleSize);
    EXPECT_NEAR(heading.font().pointSizeF(), QApplication::font().pointSizeF() * titleSize, 0.1);
    const int height = grid.verticalHeader()->defaultSectionSize();
    const QFont former = QApplication::font();
    QFont larger = former;
    larger.setPointSizeF(former.pointSizeF() * 2);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_GT(grid.verticalHeader()->defaultSectionSize(), height * 3 / 2);
    EXPECT_NEAR(heading.font().pointSizeF(), larger.pointSizeF() * titleSize, 0.1);
    QApplication::setFont(former);
}

} // namespace
