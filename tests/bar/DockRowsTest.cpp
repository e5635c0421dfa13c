#include "bar/DockRows.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

class DockRowsTest : public testing::Test {
protected:
    Band* Add(TextView name, std::int32_t row, std::int32_t place, bool visible = true) {
        Band* band = bar.AddBand(Text(name), {}, BandKind::Toolbar);
        band->Dock = Docking{DockSide::Top, row, place, {}, {}};
        band->Visible = visible;
        return band;
    }

    // The rows of a side from the edge, hidden bands in brackets.
    std::string Rows(DockSide side) {
        std::vector<const Band*> bands;
        for (const auto& band : bar.Bands()) {
            if (band->Dock().Side == side) bands.push_back(band.get());
        }
        std::ranges::sort(bands, {}, [](const Band* b) { return std::pair(b->Dock().Row, b->Dock().Place); });
        std::string rows;
        std::int32_t row = 0;
        for (const Band* band : bands) {
            while (row < band->Dock().Row) rows += std::to_string(++row) + ":";
            const std::string name = ToUtf8(band->Name());
            rows += band->Visible() ? name : "(" + name + ")";
        }
        return rows;
    }

    CommandBar bar;
};

TEST_F(DockRowsTest, RowsAndPlacesAreCountedAnew) {
    Band *a = Add(u"a", 4, 2), *b = Add(u"b", 4, 7), *c = Add(u"c", 9, 0);
    AssignDockRows(bar, DockSide::Top, {{b, a}, {c}});
    EXPECT_EQ(Rows(DockSide::Top), "1:ba2:c");
}

TEST_F(DockRowsTest, AToolbarMayMoveToAnotherSide) {
    Band *a = Add(u"a", 1, 0), *b = Add(u"b", 1, 1);
    AssignDockRows(bar, DockSide::Top, {{a}});
    AssignDockRows(bar, DockSide::Left, {{b}});
    EXPECT_EQ(Rows(DockSide::Top), "1:a");
    EXPECT_EQ(Rows(DockSide::Left), "1:b");
}

TEST_F(DockRowsTest, AHiddenToolbarStaysBesideTheOnesItStoodWith) {
    Band *a = Add(u"a", 1, 0), *c = Add(u"c", 1, 2), *d = Add(u"d", 2, 0);
    Add(u"b", 1, 1, false);
    AssignDockRows(bar, DockSide::Top, {{d}, {a, c}});
    EXPECT_EQ(Rows(DockSide::Top), "1:d2:a(b)c");
}

TEST_F(DockRowsTest, AHiddenToolbarAloneInItsRowKeepsARow) {
    Band *a = Add(u"a", 1, 0), *c = Add(u"c", 3, 0);
    Add(u"b", 2, 0, false);
    Add(u"z", 7, 0, false);
    AssignDockRows(bar, DockSide::Top, {{a}, {c}});
    EXPECT_EQ(Rows(DockSide::Top), "1:a2:(b)3:c4:(z)");
}

TEST_F(DockRowsTest, EmptyRowsAndOtherSidesCountNothing) {
    Band* a = Add(u"a", 2, 0);
    Add(u"f", 0, 0)->Dock = Docking{DockSide::Floating, 0, 0, {5}, {6}};
    AssignDockRows(bar, DockSide::Top, {{}, {a}});
    EXPECT_EQ(Rows(DockSide::Top), "1:a");
    EXPECT_EQ(bar.FindBand(u"f")->Dock().Left.value, 5);
}

} // namespace

} // namespace tessa
