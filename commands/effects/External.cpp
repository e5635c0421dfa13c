#include "commands/effects/External.h"

#include "address/Endpoints.h"
#include "bar/ToolName.h"
#include "base/Version.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace tessa {

namespace {

// Deliberate: the two sizes differ.
constexpr std::size_t kMailBuffer = 256;
constexpr std::size_t kNewsBuffer = 512;

Text CommandOf(const Setting<Text>& setting, TextView scheme, const Shell& shell) {
    return setting.HasValue() ? setting.Get() : shell.ProgramFor(scheme);
}

void Launch(TextView command, std::size_t buffer, Shell& shell) {
    if (command.empty()) return;
    const auto expanded = External::ExpandEnvironmentStrings(command, buffer, shell);
    if (!expanded) return;
    const auto words = External::WordsOf(TextView(*expanded).substr(0, expanded->find(u'\0')));
    if (!words.empty()) ResumeNext(shell.Start(words));
}

/// Reads a command line character by character.
struct WordReader {
    std::vector<Text> words;
    char16_t quote = 0; ///< the quote that is open; 0 for none
    bool inWord = false;

    /// Takes what stands first and answers how long it was.
    std::size_t Take(TextView rest) {
        const char16_t first = rest.front();
        if (quote == 0 && (first == u' ' || first == u'\t' || first == u'\n')) {
            inWord = false;
            return 1;
        }
        if (!std::exchange(inWord, true)) words.emplace_back();
        if (first == quote) {
            quote = 0;
        } else if (quote == 0 && (first == u'"' || first == u'\'')) {
            quote = first;
        } else if (IsEscape(rest)) {
            words.back() += rest[1];
            return 2;
        } else {
            words.back() += first;
        }
        return 1;
    }

private:
    /// Whether a backslash stands first that makes the next character an ordinary one.
    [[nodiscard]] bool IsEscape(TextView rest) const {
        if (rest.front() != u'\\' || rest.size() < 2 || quote == u'\'') return false;
        return quote == 0 || rest[1] == u'"' || rest[1] == u'\\';
    }
};

Text BugReportSubject(TextView environment) {
    return u"Bug Report (TessaView " + Decimal(Version::kMajor) + u"." + Decimal(Version::kMinor) + u"." +
           Decimal(Version::kRevision) + u"-" + Text(environment) + u")";
}

} // namespace

namespace External {

void LaunchMailClient(SettingsStorageFactory& settings, Shell& shell) {
    const SettingsStore store(settings);
    Launch(CommandOf(store.MailClient, u"mailto", shell), kMailBuffer, shell);
}

void LaunchNewsClient(SettingsStorageFactory& settings, Shell& shell) {
    const SettingsStore store(settings);
    Launch(CommandOf(store.NewsClient, u"news", shell), kNewsBuffer, shell);
}

Text EnvironmentText(SettingsStorageFactory& settings, const Shell& shell) {
    const Text stored = SettingsStore(settings).EnvironmentText.Get();
    return stored.empty() ? shell.SystemName() : stored;
}

Text MailAddress(TextView tool, const MailContents& contents) {
    const Text maker = u"mailto:" + Text(Endpoints::kSupportMailbox);
    const Text address(contents.address);
    if (tool == u"mnuNewMessage"_tool) return u"mailto:";
    if (tool == u"mnuSendLink"_tool)
        return u"mailto:?subject=" + Text(contents.title) + u" (" + address + u")&body=" + address;
    if (tool == u"mnuMailQuorvaneSoftware"_tool) return maker;
    if (tool == u"mnuFeatureRequest"_tool) return maker + u"?subject=Feature Request";
    if (tool == u"mnuMailBugReport"_tool) return maker + u"?subject=" + BugReportSubject(contents.environment);
    return {};
}

std::optional<Text> ExpandEnvironmentStrings(TextView text, std::size_t size, const Shell& shell) {
    Text all;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = text[i] == u'%' ? text.find(u'%', i + 1) : TextView::npos;
        const auto value =
            end == TextView::npos ? std::nullopt : shell.EnvironmentVariable(text.substr(i + 1, end - i - 1));
        // The sign that ends a name which stands for nothing may begin the next one.
        all += value ? TextView(*value) : text.substr(i, 1);
        i = value ? end + 1 : i + 1;
    }
    return all.size() < size ? std::optional(all) : std::nullopt;
}

std::vector<Text> WordsOf(TextView commandLine) {
    WordReader reader;
    while (!commandLine.empty()) commandLine.remove_prefix(reader.Take(commandLine));
    return reader.words;
}

} // namespace External

} // namespace tessa
