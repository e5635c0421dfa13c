// Whoever changes a module finds by its name what tests it.
#include "tests/base/HouseFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

namespace {

using HouseFile = house::File;

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

std::string NameOf(const std::string& path) {
    const std::string file = path.substr(path.rfind('/') + 1);
    return file.substr(0, file.rfind('.'));
}

std::string FirstOf(const std::string& path) { return path.substr(0, path.find('/')); }

bool IsTest(const HouseFile& file) {
    return file.path.starts_with("tests/") && (file.path.ends_with("Test.cpp") || file.path.ends_with("_test.py"));
}

bool IsOfProduct(const HouseFile& file) {
    const std::string first = FirstOf(file.path);
    return (file.path.ends_with(".cpp") || file.path.ends_with(".h")) && first != "tests" && first != "packaging";
}

/// A header that only declares, or holds nothing but values, has nothing to test.
bool DoesSomething(const HouseFile& file) {
    static const std::regex kComments("//[^\n]*"), kReturns("\\breturn\\b");
    return file.path.ends_with(".cpp") || std::regex_search(std::regex_replace(file.text, kComments, ""), kReturns);
}

/// What the first lines of a test say that it tests beside the module of its own name.
std::set<std::string> SaysItTests(const HouseFile& test) {
    static const std::regex kLine("(//|#) Tests: ([A-Za-z0-9, ]+)"), kName("[A-Za-z0-9]+");
    std::set<std::string> names;
    std::istringstream lines(test.text);
    std::smatch parts;
    for (std::string line; std::getline(lines, line) && std::regex_match(line, parts, kLine);) {
        const std::string all = parts[2];
        for (std::sregex_iterator each(all.begin(), all.end(), kName), end; each != end; ++each)
            names.insert(each->str());
    }
    return names;
}

/// Whether a test stands where somebody looks for it who knows the room: in it, right above it, or below.
bool IsOfRoom(const std::string& test, const std::string& room) {
    const std::string folder = FolderOf(test).substr(std::string_view("tests/").size());
    return folder == room || room.starts_with(folder + "/") || folder.starts_with(room + "/");
}

bool HasOwnTest(const std::string& module, const std::vector<HouseFile>& house) {
    for (const HouseFile& each : house)
        if (IsTest(each) && NameOf(each.path) == NameOf(module) + "Test" && IsOfRoom(each.path, FolderOf(module)))
            return true;
    return false;
}

/// The modules that nothing says it tests, and what tests say that there is not.
std::set<std::string> Uncovered(const std::vector<HouseFile>& house) {
    std::map<std::string, bool> modules; // and whether they do something
    std::set<std::string> names, said, complaints;
    for (const HouseFile& each : house) {
        if (!IsOfProduct(each)) continue;
        const std::string module = each.path.substr(0, each.path.rfind('.'));
        modules[module] = modules[module] || DoesSomething(each);
        names.insert(NameOf(module));
    }
    for (const HouseFile& each : house) {
        if (!IsTest(each)) continue;
        for (const std::string& name : SaysItTests(each)) {
            said.insert(name);
            if (!names.contains(name)) complaints.insert(each.path + " names " + name);
        }
    }
    for (const auto& [module, doesSomething] : modules)
        if (doesSomething && !said.contains(NameOf(module)) && !HasOwnTest(module, house)) complaints.insert(module);
    return complaints;
}

TEST(Covered, EachModuleHasATestOfItsNameOrIsNamedByOne) {
    const std::vector<HouseFile> house = house::FilesWith({".h", ".cpp", ".py"});
    EXPECT_EQ(Uncovered(house), std::set<std::string>{});
    // Guards against a look at the wrong folder, which would find nothing wrong anywhere.
    for (const std::string_view file : {"tabs/TabSet.cpp", "tests/tabs/TabSetTest.cpp", "tests/e2e/strip_test.py"})
        EXPECT_TRUE(std::ranges::any_of(house, [&](const HouseFile& each) { return each.path == file; })) << file;
}

TEST(Covered, AModuleWithoutATestIsFound) {
    const HouseFile module{"tabs/X.cpp", ""}, header{"tabs/X.h", "int F() { return 1; }"};
    EXPECT_EQ(Uncovered({module, header}), std::set<std::string>{"tabs/X"});
    EXPECT_EQ(Uncovered({module, {"tests/tabs/XTest.cpp", ""}}), std::set<std::string>{});
    EXPECT_EQ(Uncovered({header}), std::set<std::string>{"tabs/X"}) << "a header that does something";
    EXPECT_EQ(Uncovered({{"tabs/X.h", "// return\nint F();\n"}}), std::set<std::string>{});
}

TEST(Covered, ATestOfThatNameInAnotherRoomIsNone) {
    const HouseFile module{"qt/bar/X.cpp", ""};
    EXPECT_EQ(Uncovered({module, {"tests/bar/XTest.cpp", ""}}), std::set<std::string>{"qt/bar/X"});
    EXPECT_EQ(Uncovered({module, {"tests/qt/XTest.cpp", ""}}), std::set<std::string>{});
    EXPECT_EQ(Uncovered({module, {"tests/qt/bar/more/XTest.cpp", ""}}), std::set<std::string>{});
}

TEST(Covered, ATestMayNameWhatItTestsInItsFirstLines) {
    const HouseFile module{"qt/bar/X.cpp", ""}, other{"tabs/Y.cpp", ""};
    EXPECT_EQ(Uncovered({module, other, {"tests/engine/ZTest.cpp", "// Tests: X\n// Tests: Y\n"}}),
              std::set<std::string>{});
    EXPECT_EQ(Uncovered({module, {"tests/e2e/z_test.py", "# Tests: X\n"}}), std::set<std::string>{});
    EXPECT_EQ(Uncovered({module, {"tests/engine/ZTest.cpp", "\n// Tests: X\n"}}), std::set<std::string>{"qt/bar/X"});
    EXPECT_EQ(Uncovered({module, {"tests/fakes/Z.cpp", "// Tests: X\n"}}), std::set<std::string>{"qt/bar/X"});
}

TEST(Covered, ANameThatIsNoModuleIsFound) {
    EXPECT_EQ(Uncovered({{"tests/tabs/ZTest.cpp", "// Tests: Gone\n"}}),
              std::set<std::string>{"tests/tabs/ZTest.cpp names Gone"});
}

} // namespace

} // namespace tessa
