#include "qt/window/PageBars.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class BarOfAHeight : public QWidget {
public:
    BarOfAHeight(QWidget& parent, int height) : QWidget(&parent), m_height(height) {}
    [[nodiscard]] QSize sizeHint() const override { return {100, m_height}; }

private:
    int m_height;
};

class PageBarsTest : public testing::Test {
protected:
    void SetUp() override {
        bars.Add(above, PageBars::Side::Above);
        bars.Add(below, PageBars::Side::Below);
        area.resize(400, 300);
        area.show();
    }
    [[nodiscard]] QRect Lay(int height = 300) const { return bars.Lay({0, 0, 400, height}); }

    QWidget area;
    BarOfAHeight above{area, 30}, below{area, 40};
    PageBars bars;
};

TEST_F(PageBarsTest, TakeTheirRoomFromThePage) {
    EXPECT_EQ(Lay(), QRect(0, 30, 400, 230));
    EXPECT_EQ(above.geometry().top(), 0);
    EXPECT_EQ(below.geometry().bottom(), 299);
    EXPECT_EQ(below.width(), 400);
}

TEST_F(PageBarsTest, OneThatIsHiddenTakesNone) {
    above.hide();
    EXPECT_EQ(Lay().top(), 0);
    below.hide();
    EXPECT_EQ(Lay(), QRect(0, 0, 400, 300));
}

TEST_F(PageBarsTest, OneThatHasEndedIsLeftAlone) {
    {
        BarOfAHeight ends(area, 50);
        ends.show();
        bars.Add(ends, PageBars::Side::Below);
        EXPECT_EQ(Lay().height(), 180);
    }
    EXPECT_EQ(Lay().height(), 230);
}

TEST_F(PageBarsTest, OfTwoOnOneSideTheSecondIsNearerToThePage) {
    BarOfAHeight second(area, 20);
    second.show();
    bars.Add(second, PageBars::Side::Above);
    const QRect page = Lay();
    EXPECT_EQ(second.geometry().top(), above.geometry().bottom() + 1);
    EXPECT_EQ(page.top(), second.geometry().bottom() + 1);
}

} // namespace

} // namespace tessa::qt
