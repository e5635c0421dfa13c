#include "forms/ListModel.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

struct Planet {
    std::string Name;
    int Moons = 0;
    friend bool operator==(const Planet&, const Planet&) = default;
};

/// A view that knows of the rows only what it is told. It reads each when it is told of it.
struct ListModelTest : testing::Test {
    ListModelTest() {
        connections += list.Attach([this](RowChange change) { Follow(change); });
        connections += list.ListIndex.Attach([this](std::int32_t index) { selected = index; });
    }
    void Follow(RowChange change) {
        const auto place = shown.begin() + static_cast<std::ptrdiff_t>(change.index);
        told += "airc"[static_cast<int>(change.kind)] + std::to_string(change.index) + " ";
        switch (change.kind) {
        case RowChange::Kind::All:
            shown = list.Rows();
            return;
        case RowChange::Kind::Inserted:
            shown.insert(place, list.Rows().at(change.index));
            return;
        case RowChange::Kind::Removed:
            shown.erase(place);
            return;
        case RowChange::Kind::Changed:
            shown.at(change.index) = list.Rows().at(change.index);
        }
    }
    /// Shows these and says what the view was told: "a" all, "i" inserted, "r" removed, "c" changed. Names of one
    /// letter, each with its moons behind it when there are any.
    std::string Show(const std::string& names) {
        std::vector<Planet> rows;
        for (const char each : names) {
            if (each >= '0' && each <= '9')
                rows.back().Moons = each - '0';
            else
                rows.push_back({std::string(1, each)});
        }
        told.clear();
        list.Show(rows);
        EXPECT_EQ(shown, rows);
        EXPECT_EQ(selected, list.ListIndex());
        return told.empty() ? told : told.substr(0, told.size() - 1);
    }
    [[nodiscard]] std::string Selected() const {
        const Planet* row = list.FindSelected();
        return row ? row->Name + "@" + std::to_string(list.ListIndex()) : "none";
    }

    ListModel<Planet, &Planet::Name> list;
    std::vector<Planet> shown;
    std::int32_t selected = -2;
    std::string told;
    Connections connections;
};

TEST_F(ListModelTest, ItsViewIsShownWhatThereIsAndThenOnlyWhatDiffers) {
    EXPECT_EQ(told, "a0 ");
    EXPECT_EQ(Show("abc"), "i0 i1 i2");
    EXPECT_EQ(Show("abc"), "");
    EXPECT_EQ(Show("ab2c"), "c1");
    EXPECT_EQ(Show("xab2c"), "i0");
    EXPECT_EQ(Show("xab2cyz"), "i4 i5");
    EXPECT_EQ(Show("xb2cyz"), "r1");
    EXPECT_EQ(Show("xyz"), "r2 r1");
    EXPECT_EQ(Show("xb3z"), "c1");
    EXPECT_EQ(Show("x1b3mnz1"), "i2 i3 c0 c4");
    EXPECT_EQ(Show("x1qz"), "r3 r2 c1 c2");
    EXPECT_EQ(Show(""), "r2 r1 r0");
}

TEST_F(ListModelTest, RowsThatChangePlacesAreToldAsChanged) {
    Show("abcd");
    EXPECT_EQ(Show("dcba"), "c0 c1 c2 c3");
    EXPECT_EQ(Show("dbca"), "c1 c2");
}

TEST_F(ListModelTest, TheSelectionStaysWithItsRow) {
    Show("abc");
    EXPECT_EQ(Selected(), "none");
    list.Select(std::string("b"));
    EXPECT_EQ(Selected(), "b@1");
    Show("xab9c");
    EXPECT_EQ(Selected(), "b@2");
    Show("cbxa");
    EXPECT_EQ(Selected(), "b@1");
    Show("b");
    EXPECT_EQ(Selected(), "b@0");
    Show("ac");
    EXPECT_EQ(Selected(), "none");
    list.Select(std::string("c"));
    EXPECT_EQ(Selected(), "c@1");
    list.Select(std::string("nowhere"));
    EXPECT_EQ(Selected(), "none");
    list.ListIndex = 7;
    EXPECT_EQ(list.FindSelected(), nullptr);
    Show("ab");
    EXPECT_EQ(Selected(), "none");
}

TEST_F(ListModelTest, TheViewHearsOfTheSelectionWhenAllRowsStand) {
    Show("abc");
    list.Select(std::string("c"));
    std::size_t rows = 0;
    list.ListIndex.Change.ConnectForLife([&] { rows = shown.size(); });
    Show("c");
    EXPECT_EQ(rows, 1U);
}

TEST_F(ListModelTest, OneRowAtATime) {
    list.Insert(9, {"a"});
    list.Insert(0, {"b"});
    list.ListIndex = 1;
    list.Insert(1, {"c"});
    EXPECT_EQ(Selected(), "a@2");
    list.Set(2, {"a", 4});
    list.Set(3, {"none"});
    EXPECT_EQ(list.FindSelected()->Moons, 4);
    list.Remove(0);
    EXPECT_EQ(Selected(), "a@1");
    list.Remove(5);
    list.Remove(1);
    EXPECT_EQ(Selected(), "none");
    EXPECT_EQ(told, "a0 i0 i0 i1 c2 r0 r1 ");
    EXPECT_EQ(shown, list.Rows());
}

} // namespace

} // namespace tessa
