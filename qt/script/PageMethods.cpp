#include "qt/script/PageMethods.h"

#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <string_view>

namespace tessa::qt {

namespace {

// The bus takes no longer message.
constexpr qsizetype kLongestAnswer = 32 << 20;

void AnswerText(const ScriptCall& call, const QString& text) {
    text.size() > kLongestAnswer ? call.Refuse(u"The page is too long.") : call.Answer(QVariantList{text});
}

void WriteTo(const ScriptCall& call, const QByteArray& bytes) {
    const Text path = FromQt(call.TextAt(1));
    const std::string_view all(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (all.empty()) return call.Refuse(u"The page could not be had.");
    if (WriteWholeFile(PathToBytes(path), all) == Outcome::Done) return call.Answer();
    call.Refuse(u"The file could not be written: " + path);
}

GroupOutput::Told Answering(const ScriptCall& call) {
    return {[call](const GroupOutput::Result& result) { call.Answer(result); }};
}

/// Whether the call says where to write; refuses it otherwise.
bool HasPath(const ScriptCall& call) {
    const bool has = IsAbsolute(PathToBytes(FromQt(call.TextAt(1))));
    if (!has) call.Refuse(u"The path has to begin at the root.");
    return has;
}

} // namespace

std::vector<ScriptMethod> PageMethods::All() {
    return {
        {"Text", "u", "s", [this](const ScriptCall& call) { ReadText(call); }},
        {"Html", "u", "s", [this](const ScriptCall& call) { ReadHtml(call); }},
        {"Pdf", "us", "", [this](const ScriptCall& call) { WritePdf(call); }},
        {"Screenshot", "us", "", [this](const ScriptCall& call) { WriteScreenshot(call); }},
        {"PdfOfAll", "aus", "as", [this](const ScriptCall& call) { WritePdfOfAll(call); }},
        {"KeepOffline", "aus", "as",
         [this](const ScriptCall& call) {
             m_parts.output.Keep({.tabs = call.NumbersAt(0)}, call.TextAt(1), Answering(call));
         }},
        {"PdfOfGroup", "ss", "as", [this](const ScriptCall& call) { WritePdfOfGroup(call); }},
        {"KeepGroup", "ss", "as", [this](const ScriptCall& call) { KeepGroup(call); }},
        {"CheckGroup", "s", "a(ussss)", [this](const ScriptCall& call) { CheckGroup(call); }},
    };
}

void PageMethods::WhenReadable(const ScriptCall& call, const std::function<void(std::int32_t index)>& ready) {
    const std::uint32_t number = call.NumberAt(0);
    const auto index = static_cast<std::int32_t>(number);
    if (const auto refusal = m_parts.window.MayRead(number); !refusal.empty()) return call.Refuse(refusal);
    if (!m_parts.reads.Wake(index)) return call.Refuse(u"The page has not been loaded yet; activate its tab first.");
    const bool waits = m_parts.waits.When({number}, [this, call, number, index, ready] {
        const auto refusal = m_parts.window.MayRead(number);
        refusal.empty() ? ready(index) : call.Refuse(refusal);
    });
    if (!waits) call.Refuse(LoadWaits::kTooMany);
}

void PageMethods::ReadText(const ScriptCall& call) {
    WhenReadable(call, [this, call](std::int32_t index) {
        m_parts.reads.Text(index, [call](const QString& text) { AnswerText(call, text); });
    });
}

void PageMethods::ReadHtml(const ScriptCall& call) {
    WhenReadable(call, [this, call](std::int32_t index) {
        m_parts.reads.Html(index, [call](const QString& html) { AnswerText(call, html); });
    });
}

void PageMethods::WritePdf(const ScriptCall& call) {
    if (!HasPath(call)) return;
    WhenReadable(call, [this, call](std::int32_t index) {
        m_parts.reads.Pdf(index, [call](const PrintedPage& printed) {
            printed.answered ? WriteTo(call, printed.pdf) : call.Refuse(u"The page does not answer.");
        });
    });
}

void PageMethods::WriteScreenshot(const ScriptCall& call) {
    if (!HasPath(call)) return;
    WhenReadable(call, [this, call](std::int32_t index) {
        const auto refusal = m_parts.window.Activate(call.NumberAt(0));
        if (!refusal.empty()) return call.Refuse(refusal);
        m_parts.reads.Screenshot(index, [call](const QByteArray& png) { WriteTo(call, png); });
    });
}

void PageMethods::WritePdfOfAll(const ScriptCall& call) {
    if (!HasPath(call)) return;
    m_parts.output.Pdf({.tabs = call.NumbersAt(0)}, call.TextAt(1), Answering(call));
}

std::optional<GroupOutput::Pages> PageMethods::PagesOfGroup(const ScriptCall& call) const {
    const Text group = FromQt(call.TextAt(0)), file = m_parts.window.FileOf(group);
    if (file.empty()) {
        call.Refuse(u"The TessaGroup could not be read: " + group);
        return std::nullopt;
    }
    return GroupOutput::UnopenedPages(file);
}

void PageMethods::WritePdfOfGroup(const ScriptCall& call) {
    if (!HasPath(call)) return;
    if (const auto pages = PagesOfGroup(call)) m_parts.output.Pdf(*pages, call.TextAt(1), Answering(call));
}

void PageMethods::KeepGroup(const ScriptCall& call) {
    if (const auto pages = PagesOfGroup(call)) m_parts.output.Keep(*pages, call.TextAt(1), Answering(call));
}

void PageMethods::CheckGroup(const ScriptCall& call) {
    const Text file = m_parts.window.FileOf(FromQt(call.TextAt(0)));
    if (file.empty()) return call.Refuse(u"The TessaGroup could not be read: " + FromQt(call.TextAt(0)));
    m_parts.checks.Check(
        file, [call](const std::vector<HealthLine>& lines) { call.Answer(QVariantList{ScriptCall::OnBus(lines)}); });
}

} // namespace tessa::qt
