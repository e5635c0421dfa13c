// What remembering costs, on a real disk: storing pages, searching among many, comparing a page, searching in open
// pages. Prints a line each.
#include "history/PageNews.h"
#include "history/Snippets.h"
#include "qt/base/Strings.h"
#include "qt/history/HistoryDatabase.h"
#include "qt/history/HistoryRecords.h"
#include "qt/history/HistorySearch.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>

namespace tessa::qt {

namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::time_point since) {
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

/// Words as often as they are in a language: the thousandth a thousandth as often as the first.
class Language {
public:
    Text Word() {
        const auto rank = static_cast<int>(std::pow(60'000.0, std::uniform_real_distribution<>(0, 1)(m_random)));
        Text word;
        // Of the letters that make it a word of its own.
        for (int number = rank * 7 + 3; number > 0; number /= 20) word += u"etaoinshrdlcumwfgypb"[number % 20];
        return word;
    }
    /// In a script without blanks, of whose characters the thousandth is a thousandth as frequent as the first, too.
    std::vector<Passage> UnspacedPage(int characters) {
        std::vector<Passage> passages;
        for (int done = 0; done < characters; done += 60) {
            Text passage;
            for (int i = 0; i < 60; ++i)
                passage += static_cast<char16_t>(
                    0x4E00 + static_cast<int>(std::pow(3000.0, std::uniform_real_distribution<>(0, 1)(m_random))));
            passages.push_back({PassageKind::Words, passage});
        }
        return passages;
    }
    std::vector<Passage> Page(int words) {
        std::vector<Passage> passages;
        for (int done = 0; done < words; done += 40) {
            Text passage;
            for (int i = 0; i < 40; ++i) passage += Word() + u' ';
            passages.push_back({PassageKind::Words, passage});
        }
        return passages;
    }

private:
    std::mt19937 m_random{1};
};

/// How much memory of its own the process has, in megabytes.
double OwnMegabytes() {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QFile::ReadOnly)) return 0;
    double kilobytes = 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith("Private_")) kilobytes += line.simplified().split(' ').value(1).toDouble();
    return kilobytes / 1000;
}

class Measured {
public:
    /// Pages of a script without blanks have so many characters for words.
    enum class Script { Spaced, Unspaced };
    explicit Measured(Script script) : m_script(script) {}

    void Run(int pages, int words) {
        if (m_database.Open() != HistoryDatabase::State::Ready) return;
        std::printf("memory before: %.1f MB\n", OwnMegabytes());
        Store(std::min(pages, 10'000), words);
        Store(pages - m_stored, words);
        m_database.Run(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        std::printf("file of %d pages: %.1f MB\n", m_stored,
                    static_cast<double>(QFile(m_database.File()).size()) / 1e6);
        const std::vector<TextView> spaced{u"",       u"t",   u"te",   u"tea", u"th t",
                                           u"\"te\"", u"ttt", u"hhhh", u"qqq", u"page 4711"},
            unspaced{u"\u4E01", u"\u4E01\u4E02", u"\u4E20\u4E21", u"\u4E01\u4E02\u4E03", u"\u5000\u5001\u5002"};
        for (const TextView typed : m_script == Script::Spaced ? spaced : unspaced) Search(typed);
        std::printf("memory after: %.1f MB\n", OwnMegabytes());
    }

private:
    void Store(int pages, int words) {
        if (pages <= 0) return;
        double made = 0;
        const auto start = Clock::now();
        for (int done = 0; done < pages;) {
            m_database.Run(QStringLiteral("BEGIN IMMEDIATE"));
            for (int i = 0; i < 32 && done < pages; ++i, ++done) {
                const auto begin = Clock::now();
                HistoryVisit visit = Next(words);
                made += Milliseconds(begin);
                m_records.Keep(visit);
            }
            m_database.Run(QStringLiteral("COMMIT"));
        }
        const double all = Milliseconds(start) - made;
        std::printf("store %d pages of %d words: %.0f ms, %.2f ms each\n", pages, words, all, all / pages);
    }
    HistoryVisit Next(int words) {
        const Text number = Decimal(++m_stored);
        HistoryVisit visit{u"https://site" + Decimal(m_stored % 500) + u".example/page/" + number,
                           u"site" + Decimal(m_stored % 500) + u".example", u"Page " + number};
        visit.When = 1'795'000'000 + m_stored;
        const auto passages = m_script == Script::Spaced ? m_language.Page(words) : m_language.UnspacedPage(words);
        visit.Passages = Passages::ToBytes(passages);
        visit.AsRead = NewsOf::ToBytes(NewsOf::FirstTime(passages));
        return visit;
    }
    // The first list, with its snippets, as the page of the history asks for it.
    void Search(TextView typed) {
        const auto pieces = SearchText::PiecesOf(typed);
        double worst = 0, best = 1e9;
        std::size_t count = 0;
        for (int round = 0; round < 5; ++round) {
            const auto start = Clock::now();
            const auto found =
                HistorySearch(m_database)
                    .Find({.Match = SearchText::QueryOf(pieces), .Most = 60, .Passages = !pieces.empty()});
            for (const HistoryEntry& each : found.Entries)
                (void)Snippets::Best(pieces, Passages::FromBytes(each.Passages), each.Title, 2, 220);
            count = found.Entries.size();
            worst = std::max(worst, Milliseconds(start));
            best = std::min(best, Milliseconds(start));
        }
        std::printf("search \"%s\": %zu found, first time %.1f ms, best %.1f ms\n", ToUtf8(typed).c_str(), count, worst,
                    best);
    }

    const Script m_script;
    QTemporaryDir m_folder;
    HistoryDatabase m_database{m_folder.path(), QStringLiteral("bench")};
    HistoryRecords m_records{m_database};
    Language m_language;
    int m_stored = 0;
};

void MeasureOpenPages() {
    Language language;
    std::vector<std::vector<Passage>> pages;
    for (int i = 0; i < 100; ++i) pages.push_back(language.Page(1500));
    for (const char16_t* typed : {u"t", u"tea hot", u"never"}) {
        const auto pieces = SearchText::PiecesOf(typed);
        const auto start = Clock::now();
        std::size_t found = 0;
        for (const auto& page : pages) found += Snippets::Best(pieces, page, {}, 3, 140).size();
        std::printf("search \"%s\" in 100 open pages: %zu passages, %.1f ms\n", ToUtf8(typed).c_str(), found,
                    Milliseconds(start));
    }
    const PageAsRead before = NewsOf::FirstTime(pages[0]);
    const auto start = Clock::now();
    for (int i = 0; i < 100; ++i) (void)NewsOf::Compare(before, pages[1]);
    std::printf("compare a page of 1500 words: %.2f ms\n", Milliseconds(start) / 100);
}

} // namespace

} // namespace tessa::qt

// history_bench [PAGES [WORDS]]: 100,000 pages of 600 words unless others are given; before them 10,000 at most of a
// script without blanks.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // Each line as soon as it is known: storing takes minutes.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const auto number = [&](int at, int otherwise) { return argc > at ? QByteArray(argv[at]).toInt() : otherwise; };
    tessa::qt::MeasureOpenPages();
    using Measured = tessa::qt::Measured;
    Measured(Measured::Script::Unspaced).Run(std::min(number(1, 10'000), 10'000), number(2, 600));
    Measured(Measured::Script::Spaced).Run(number(1, 100'000), number(2, 600));
    return 0;
}
