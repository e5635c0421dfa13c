#include "tests/base/HouseFiles.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

namespace {

/// A room of the house, which is a folder with what stands below it, and the rooms right under it: its files may
/// include their headers, and those of the rooms that stand under them in turn.
struct Layer {
    std::string room;
    std::vector<std::string> standsOn;
};

std::vector<std::string> Words(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

/// The rows room(FOLDER STANDS_ON...) of a table.
std::vector<Layer> RoomsIn(const std::string& table) {
    static const std::regex kRow(R"(^room\(([^)]*)\))", std::regex::ECMAScript | std::regex::multiline);
    std::vector<Layer> rooms;
    for (std::sregex_iterator each(table.begin(), table.end(), kRow), end; each != end; ++each) {
        std::vector<std::string> names = Words((*each)[1]);
        if (names.empty()) continue;
        rooms.push_back({names.front(), {names.begin() + 1, names.end()}});
    }
    return rooms;
}

/// The table that CMake links by, lowest rooms first.
const std::vector<Layer>& Rooms() {
    static const std::vector<Layer> rooms = RoomsIn(house::Read("rooms.cmake"));
    return rooms;
}

/// What makes a package stands on nothing of the house.
const Layer kPackaging{"packaging", {}};

using Source = house::File;

enum class Written { Quoted, Angled, Macro };

/// What an #include names, without its delimiters.
struct Include {
    std::string name;
    Written as = Written::Quoted;
};

std::string FirstFolder(std::string_view path) {
    const std::size_t slash = path.find('/');
    return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

bool Lists(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

/// The room that a file stands in, the innermost of the table; nothing when it is in none.
const Layer* RoomOf(std::string_view path) {
    const Layer* found = path.starts_with("packaging/") ? &kPackaging : nullptr;
    for (const Layer& each : Rooms())
        if (path.starts_with(each.room + '/') && (!found || each.room.size() > found->room.size())) found = &each;
    return found;
}

bool StandsOn(const Layer& upper, const Layer& lower) {
    return Lists(upper.standsOn, lower.room) || std::ranges::any_of(Rooms(), [&](const Layer& between) {
               return Lists(upper.standsOn, between.room) && StandsOn(between, lower);
           });
}

bool IsQts(std::string_view path) { return FirstFolder(path) == "qt"; }
bool IsOfCore(std::string_view path) { return RoomOf(path) && !IsQts(path) && FirstFolder(path) != "packaging"; }

std::vector<Include> Includes(const std::string& text) {
    static const std::regex kInclude(R"re(^[ \t]*#[ \t]*include[ \t]*("[^"]*"|<[^>]*>|[^ \t\r\n]+))re",
                                     std::regex::ECMAScript | std::regex::multiline);
    std::vector<Include> includes;
    for (std::sregex_iterator each(text.begin(), text.end(), kInclude), end; each != end; ++each) {
        const std::string word = (*each)[1];
        const Written as = word.front() == '"'   ? Written::Quoted
                           : word.front() == '<' ? Written::Angled
                                                 : Written::Macro;
        includes.push_back({as == Written::Macro ? word : word.substr(1, word.size() - 2), as});
    }
    return includes;
}

bool NamesQt(const Include& include) {
    static const std::regex kQt("(Q[A-Z].*|Qt|q[a-z0-9_]+\\.h)");
    const std::size_t slash = include.name.rfind('/');
    const std::string last = slash == std::string::npos ? include.name : include.name.substr(slash + 1);
    return include.as == Written::Angled && (std::regex_match(include.name, kQt) || std::regex_match(last, kQt));
}

/// Whether a header is of one system alone, or names files by bytes, which another system takes for another text.
bool NamesTheSystem(const Include& include) {
    static const std::regex kSystem(
        "(sys|net|netinet|arpa|linux|asm|bits|mach)/.*"
        "|(unistd|fcntl|dirent|poll|pwd|grp|dlfcn|spawn|pthread|sched|semaphore|signal|termios|time|errno|malloc|"
        "wordexp"
        "|glob|ftw|langinfo|locale|syslog|aclapi|direct|fileapi|io|process|psapi|sddl|share|shlobj|tchar|wchar)\\.h"
        "|win[a-z0-9]*\\.h|c(errno|locale|signal|time)|filesystem|fstream");
    return include.as == Written::Angled && std::regex_match(include.name, kSystem);
}

bool SpeaksToTheSystem(std::string_view path) {
    return path.starts_with("base/os/posix/") || path.starts_with("base/os/windows/") || path == "app/main.cpp" ||
           path.starts_with("ctl/");
}

/// What is wrong with one #include of a file in `layer`; nothing when it is in order.
std::optional<std::string> Complaint(const Layer& layer, const std::string& path, const Include& include) {
    const bool isMain = path == "app/main.cpp";
    if (include.as == Written::Macro) return path + " hides behind a macro what it includes: " + include.name;
    if (NamesQt(include) && IsOfCore(path) && !isMain) return path + " includes Qt: " + include.name;
    if (NamesTheSystem(include) && IsOfCore(path) && !SpeaksToTheSystem(path))
        return path + " includes the system: " + include.name;
    if (include.name.starts_with("libxml/") && !path.starts_with("favorites/bookmarks/"))
        return path + " includes libxml2: " + include.name;
    if (include.name.starts_with("systemd/") && !path.starts_with("ctl/"))
        return path + " includes the bus: " + include.name;
    const bool isOfFilters = include.name.starts_with("re2/") || include.name == "libpsl.h";
    if (isOfFilters && !path.starts_with("blocking/libraries/")) return path + " includes a library: " + include.name;
    if (include.as == Written::Angled) return std::nullopt;
    if (include.name.find("..") != std::string::npos) return path + " climbs out of its folder: " + include.name;
    const Layer* target = RoomOf(include.name);
    const bool mayInclude = target && (target == &layer || StandsOn(layer, *target) || (isMain && IsQts(include.name)));
    return mayInclude ? std::nullopt : std::optional(path + " includes " + include.name);
}

std::vector<std::string> Complaints(const std::vector<Source>& sources) {
    std::vector<std::string> complaints;
    for (const Source& source : sources) {
        if (FirstFolder(source.path) == "tests") continue;
        const Layer* layer = RoomOf(source.path);
        if (!layer) {
            complaints.push_back(source.path + " is in no room of the house");
            continue;
        }
        for (const Include& include : Includes(source.text))
            if (auto complaint = Complaint(*layer, source.path, include)) complaints.push_back(*complaint);
    }
    return complaints;
}

/// A header and the source of its name are one module.
std::string ModuleOf(const std::string& path) { return path.substr(0, path.rfind('.')); }

using Arrows = std::map<std::string, std::set<std::string>>;

/// From each module to those that it includes.
Arrows ArrowsBetween(const std::vector<Source>& sources) {
    Arrows arrows;
    for (const Source& source : sources) {
        if (FirstFolder(source.path) == "tests") continue;
        const std::string from = ModuleOf(source.path);
        for (const Include& include : Includes(source.text))
            if (include.as == Written::Quoted && ModuleOf(include.name) != from)
                arrows[from].insert(ModuleOf(include.name));
    }
    return arrows;
}

void Reach(const Arrows& arrows, const std::string& from, std::set<std::string>& reached) {
    const auto found = arrows.find(from);
    if (found == arrows.end()) return;
    for (const std::string& each : found->second)
        if (reached.insert(each).second) Reach(arrows, each, reached);
}

/// Modules that include each other, directly or through others: the names of a circle with blanks between.
std::set<std::string> Circles(const std::vector<Source>& sources) {
    const Arrows arrows = ArrowsBetween(sources);
    std::map<std::string, std::set<std::string>> reached;
    for (const auto& [module, included] : arrows) Reach(arrows, module, reached[module]);
    std::set<std::string> circles;
    for (const auto& [module, others] : reached) {
        if (!others.contains(module)) continue;
        std::string circle;
        for (const std::string& each : others)
            if (const auto back = reached.find(each); back != reached.end() && back->second.contains(module))
                circle += (circle.empty() ? "" : " ") + each;
        circles.insert(circle);
    }
    return circles;
}

/// Takes comments and the insides of literals out of C++ text, so that what is left is code.
class CodeOnly {
public:
    explicit CodeOnly(std::string_view text) : m_text(text) {}

    std::string Read() {
        while (m_at < m_text.size()) Step();
        return m_code;
    }

private:
    bool Follows(std::string_view what) const { return m_text.substr(m_at, what.size()) == what; }

    void Step() {
        if (Follows("//")) return SkipPast("\n");
        if (Follows("/*")) return SkipPast("*/");
        if (Follows("R\"")) return SkipRawString();
        if (Follows("\"")) return SkipLiteral('"');
        // An apostrophe behind a digit or letter separates digits: 1'000.
        if (Follows("'") && (m_at == 0 || !std::isxdigit(static_cast<unsigned char>(m_text[m_at - 1]))))
            return SkipLiteral('\'');
        m_code += m_text[m_at++];
    }

    void SkipPast(const std::string& end) {
        const std::size_t found = m_text.find(end, m_at);
        m_at = found == std::string_view::npos ? m_text.size() : found + end.size();
        m_code += ' ';
    }

    void SkipRawString() {
        const std::size_t open = m_text.find('(', m_at);
        if (open == std::string_view::npos) return SkipPast("(");
        SkipPast(")" + std::string(m_text.substr(m_at + 2, open - m_at - 2)) + "\"");
    }

    void SkipLiteral(char quote) {
        for (++m_at; m_at < m_text.size() && m_text[m_at] != quote; ++m_at)
            if (m_text[m_at] == '\\') ++m_at;
        ++m_at;
        m_code += ' ';
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::string m_code;
};

/// The core's way with failure is `Outcome` and `ResumeNext`; an exception would skip the steps that must still run.
std::vector<std::string> FilesWithExceptions(const std::vector<Source>& sources) {
    static const std::regex kWords("\\b(try|catch|throw)\\b");
    std::vector<std::string> found;
    for (const Source& source : sources)
        if (IsOfCore(source.path) && source.path != "app/main.cpp" &&
            std::regex_search(CodeOnly(source.text).Read(), kWords))
            found.push_back(source.path);
    return found;
}

std::vector<Source> ReadHouse() { return house::FilesWith({".h", ".cpp"}); }

std::string Lines(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines) all += line + "\n";
    return all;
}

std::string Judge(const std::string& path, const std::string& text) { return Lines(Complaints({{path, text}})); }

bool HasException(const std::string& text) { return !FilesWithExceptions({{"tabs/X.cpp", text}}).empty(); }

TEST(Layers, EveryIncludeOfTheHouseKeepsToItsLayer) {
    const std::vector<Source> house = ReadHouse();
    EXPECT_EQ(Lines(Complaints(house)), "");
    // Guards against a look at the wrong folder, which would find nothing wrong anywhere.
    for (const std::string_view file : {"base/Text.h", "platform/BrowserView.h", "tabs/TabSet.cpp"})
        EXPECT_TRUE(std::any_of(house.begin(), house.end(), [&](const Source& each) { return each.path == file; }))
            << file;
}

/// The first two columns of the document's table of rooms, without the marks of code.
std::vector<std::string> RowsOfTheDocument(const std::string& document) {
    static const std::regex kRow(R"(^\| (`[^|]*) \|([^|]*)\|)", std::regex::ECMAScript | std::regex::multiline);
    const std::size_t begin = document.find("\n| Room | Stands on |"), end = document.find("\n\n", begin);
    if (begin == std::string::npos) return {};
    const std::string table = document.substr(begin, end - begin);
    std::vector<std::string> rows;
    for (std::sregex_iterator each(table.begin(), table.end(), kRow), last; each != last; ++each) {
        std::string row;
        for (const std::string& word : Words((*each)[1].str() + ':' + (*each)[2].str()))
            row += (row.empty() ? "" : " ") + word;
        std::erase(row, '`');
        rows.push_back(row);
    }
    return rows;
}

TEST(Layers, TheDocumentHasTheSameTable) {
    std::vector<std::string> rows;
    for (const Layer& each : Rooms()) {
        rows.push_back(each.room + ':');
        for (const std::string& lower : each.standsOn) rows.back() += ' ' + lower;
    }
    rows.insert(rows.end(), {"packaging:", "tests: anything"});
    EXPECT_EQ(Lines(RowsOfTheDocument(house::Read("docs/architecture.md"))), Lines(rows));
}

TEST(Layers, TheDocumentsTableIsReadByRoomAndWhatItStandsOn) {
    EXPECT_EQ(
        Lines(RowsOfTheDocument("| `a` | `x` | y |\n\n| Room | Stands on | Holds |\n|---|---|---|\n| `a` | | all |\n"
                                "| `a/b` | `a` `c` | `d` |\n| `tests` | anything | |\n\n| `e` | `f` | g |\n")),
        "a:\na/b: a c\ntests: anything\n");
    EXPECT_EQ(Lines(RowsOfTheDocument("no table")), "");
}

/// How many modules stand right in each folder.
std::map<std::string, std::size_t> ModulesByFolder(const std::vector<Source>& sources) {
    std::set<std::string> modules;
    for (const Source& each : sources)
        if (FirstFolder(each.path) != "tests") modules.insert(ModuleOf(each.path));
    std::map<std::string, std::size_t> counts;
    for (const std::string& each : modules) ++counts[each.substr(0, each.rfind('/'))];
    return counts;
}

TEST(Layers, NoFolderHoldsMoreModulesThanOneCanOversee) {
    constexpr std::size_t kMost = 25;
    const auto counts = ModulesByFolder(ReadHouse());
    EXPECT_GT(counts.size(), 20U);
    for (const auto& [folder, count] : counts) EXPECT_LE(count, kMost) << folder;
    EXPECT_EQ(ModulesByFolder({{"a/b/X.h", ""}, {"a/b/X.cpp", ""}, {"a/Y.h", ""}, {"tests/Z.cpp", ""}}),
              (std::map<std::string, std::size_t>{{"a", 1}, {"a/b", 1}}));
}

TEST(Layers, TheTableOfRoomsIsReadRowByRow) {
    const std::vector<Layer> rooms = RoomsIn("# room(no room)\nroom(base)\nroom(bar base  base/ini)\n");
    ASSERT_EQ(rooms.size(), 2U);
    EXPECT_EQ(rooms[0].room, "base");
    EXPECT_TRUE(rooms[0].standsOn.empty());
    EXPECT_EQ(rooms[1].standsOn, (std::vector<std::string>{"base", "base/ini"}));
}

TEST(Layers, NoModulesIncludeEachOther) { EXPECT_EQ(Circles(ReadHouse()), std::set<std::string>{}); }

TEST(Layers, ACircleIsFoundThroughOtherModules) {
    const Source header{"tabs/A.h", "#include \"tabs/B.h\"\n"}, between{"tabs/B.cpp", "#include \"tabs/C.h\"\n"};
    EXPECT_EQ(Circles({header, between}), std::set<std::string>{});
    EXPECT_EQ(Circles({header, between, {"tabs/C.h", "#include \"tabs/A.h\"\n"}}),
              std::set<std::string>{"tabs/A tabs/B tabs/C"});
    EXPECT_EQ(Circles({{"tabs/A.cpp", "#include \"tabs/A.h\"\n"}}), std::set<std::string>{}) << "its own header";
}

TEST(Layers, TheCoreHasNoExceptions) { EXPECT_EQ(Lines(FilesWithExceptions(ReadHouse())), ""); }

TEST(Layers, AnIncludeOfALowerFolderIsInOrder) {
    EXPECT_EQ(Judge("tabs/X.cpp", "#include \"tabs/X.h\"\n#include \"base/Text.h\"\n#include \"settings/S.h\"\n"), "");
    EXPECT_EQ(Judge("app/X.cpp", "#include \"window/frmMain.h\"\n"), "");
    EXPECT_EQ(Judge("qt/program/X.cpp", "#include \"app/Startup.h\"\n#include <QWidget>\n"), "");
    EXPECT_EQ(Judge("base/X.h", "#include \"base/os/AtomicFile.h\"\n"), "") << "within a room";
    EXPECT_EQ(Judge("base/ini/X.h", "#include \"base/os/AtomicFile.h\"\n"), "");
    EXPECT_EQ(Judge("platform/X.h", "#include \"base/Text.h\"\n#include <vector>\n"), "");
}

TEST(Layers, AnIncludeOfAHigherFolderIsFound) {
    EXPECT_EQ(Judge("base/X.cpp", "#include \"tabs/TabSet.h\"\n"), "base/X.cpp includes tabs/TabSet.h\n");
    EXPECT_EQ(Judge("base/X.cpp", "#include \"base/ini/IniFile.h\"\n"), "base/X.cpp includes base/ini/IniFile.h\n");
    EXPECT_EQ(Judge("platform/X.h", "  #  include \"settings/S.h\"\n"), "platform/X.h includes settings/S.h\n");
    EXPECT_EQ(Judge("favorites/X.h", "#include \"settings/S.h\"\n"), "favorites/X.h includes settings/S.h\n");
    EXPECT_EQ(Judge("settings/X.h", "\n#include \"tests/Desk.h\"\r\n"), "settings/X.h includes tests/Desk.h\n");
    EXPECT_EQ(Judge("window/X.h", "#include \"app/Hook.h\"\n"), "window/X.h includes app/Hook.h\n");
    EXPECT_EQ(Judge("app/Startup.cpp", "#include \"qt/base/Strings.h\"\n"),
              "app/Startup.cpp includes qt/base/Strings.h\n");
    EXPECT_EQ(Judge("qt/bar/X.cpp", "#include \"qt/bar/customize/Y.h\"\n"),
              "qt/bar/X.cpp includes qt/bar/customize/Y.h\n");
}

TEST(Layers, ARoomStandsOnRoomsThatComeBeforeIt) {
    const std::vector<Layer>& rooms = Rooms();
    for (auto each = rooms.begin(); each != rooms.end(); ++each)
        for (const std::string& name : each->standsOn)
            EXPECT_TRUE(std::any_of(rooms.begin(), each, [&](const Layer& lower) { return lower.room == name; }))
                << each->room << " stands on " << name;
    EXPECT_TRUE(StandsOn(*RoomOf("qt/program/X.h"), *RoomOf("base/X.h"))) << "through all that is between";
}

TEST(Layers, QtOutsideItsFolderIsFound) {
    EXPECT_EQ(Judge("app/main.cpp", "#include \"qt/program/RunningProgram.h\"\n#include <QApplication>\n"), "");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include <QString>\n"), "tabs/X.cpp includes Qt: QString\n");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include <QtCore/qglobal.h>\n"), "tabs/X.cpp includes Qt: QtCore/qglobal.h\n");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include <qstring.h>\n"), "tabs/X.cpp includes Qt: qstring.h\n");
}

TEST(Layers, TheSystemOutsideItsFoldersIsFound) {
    for (const std::string header :
         {"unistd.h", "sys/stat.h", "windows.h", "winsock2.h", "filesystem", "fstream", "cerrno"})
        EXPECT_EQ(Judge("base/os/X.cpp", "#include <" + header + ">\n"),
                  "base/os/X.cpp includes the system: " + header + "\n");
    EXPECT_EQ(Judge("tabs/X.h", "#include <dirent.h>\n"), "tabs/X.h includes the system: dirent.h\n");
    EXPECT_EQ(Judge("base/os/posix/X.cpp", "#include <unistd.h>\n#include <filesystem>\n"), "");
    EXPECT_EQ(Judge("base/os/windows/X.cpp", "#include <windows.h>\n"), "");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include <chrono>\n#include <thread>\n#include <cstdio>\n#include <mutex>\n"), "");
    EXPECT_EQ(Judge("qt/page/X.cpp", "#include <unistd.h>\n"), "") << "Qt's side is of one desktop yet";
}

TEST(Layers, LibxmlOutsideItsFolderIsFound) {
    EXPECT_EQ(Judge("favorites/bookmarks/X.cpp", "#include <libxml/HTMLparser.h>\n"), "");
    EXPECT_EQ(Judge("favorites/X.cpp", "#include <libxml/tree.h>\n"),
              "favorites/X.cpp includes libxml2: libxml/tree.h\n");
    EXPECT_EQ(Judge("blocking/libraries/X.cpp", "#include <re2/re2.h>\n#include <libpsl.h>\n"), "");
    EXPECT_EQ(Judge("blocking/X.cpp", "#include <re2/re2.h>\n"), "blocking/X.cpp includes a library: re2/re2.h\n");
    EXPECT_EQ(Judge("settings/X.cpp", "#include <libpsl.h>\n"), "settings/X.cpp includes a library: libpsl.h\n");
}

TEST(Layers, TheBusOutsideItsFolderIsFound) {
    EXPECT_EQ(Judge("ctl/X.cpp", "#include <systemd/sd-bus.h>\n#include <unistd.h>\n"), "");
    EXPECT_EQ(Judge("script/X.cpp", "#include <systemd/sd-bus.h>\n"),
              "script/X.cpp includes the bus: systemd/sd-bus.h\n");
}

TEST(Layers, AWayAroundTheTableIsFound) {
    EXPECT_EQ(Judge("tabs/X.cpp", "#include \"../qt/Strings.h\"\n"),
              "tabs/X.cpp climbs out of its folder: ../qt/Strings.h\n");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include \"tabs/../qt/Y.h\"\n"),
              "tabs/X.cpp climbs out of its folder: tabs/../qt/Y.h\n");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include HEADER\n"), "tabs/X.cpp hides behind a macro what it includes: HEADER\n");
    EXPECT_EQ(Judge("helpers/X.cpp", "#include <vector>\n"), "helpers/X.cpp is in no room of the house\n");
    EXPECT_EQ(Judge("tabs/X.cpp", "#include \"Strings.h\"\n"), "tabs/X.cpp includes Strings.h\n");
}

TEST(Layers, TestsMayIncludeAnything) {
    EXPECT_EQ(Judge("tests/qt/XTest.cpp", "#include \"qt/base/Strings.h\"\n#include \"Desk.h\"\n#include <QTest>\n"),
              "");
}

TEST(Layers, AnIncludeInACommentIsNone) { EXPECT_EQ(Judge("tabs/X.cpp", "// #include \"qt/base/Strings.h\"\n"), ""); }

TEST(Layers, AnExceptionInCodeIsFound) {
    EXPECT_TRUE(HasException("void F() { try { G(); } catch (...) {} }"));
    EXPECT_TRUE(HasException("int n = 1'000; throw n;"));
    EXPECT_TRUE(HasException("char q = '\"'; throw q; // \""));
    EXPECT_TRUE(HasException("auto s = R\"x(\")x\"; throw s;"));
}

TEST(Layers, TheWordsOfExceptionsMayStandInCommentsAndTexts) {
    EXPECT_FALSE(HasException("// try this\n/* throw\n away */ auto s = \"catch \\\" try\"; int retry = 1;"));
    EXPECT_FALSE(HasException("auto s = R\"(\" throw )\";"));
    EXPECT_TRUE(FilesWithExceptions({{"app/main.cpp", "throw 1;"}, {"qt/X.cpp", "throw 1;"}}).empty());
}

} // namespace

} // namespace tessa
