#pragma once
#include "platform/Downloads.h"

#include <functional>
#include <string>
#include <utility>

namespace tessa {

/// The world outside the list of downloads: remembers what it was asked, one word each.
class FakeDownloads final : public DownloadDesktop {
public:
    [[nodiscard]] Text Folder() override { return folder; }
    Outcome Open(TextView path) override { return Add("open " + ToUtf8(path)); }
    Outcome ShowInFolder(TextView path) override { return Add("show " + ToUtf8(path)); }
    Outcome Fetch(std::int32_t id, TextView address) override {
        return Add("fetch " + std::to_string(id) + " " + ToUtf8(address));
    }
    [[nodiscard]] std::int64_t Now() override { return now; }
    [[nodiscard]] std::int64_t Time() override { return time; }
    /// What it was asked so far, separated by ", "; forgets it.
    std::string Take() { return std::exchange(m_asked, {}); }

    Text folder = u"/nowhere/downloads";
    std::int64_t now = 0;
    std::int64_t time = 1'700'000'000;
    bool refuses = false; ///< every call that can fail does

private:
    Outcome Add(const std::string& line) {
        m_asked += (m_asked.empty() ? "" : ", ") + line;
        return refuses ? Outcome::Failed : Outcome::Done;
    }
    std::string m_asked;
};

/// A download of the engine, by hand.
class FakeTransfer final : public DownloadTransfer {
public:
    Outcome Pause() override { return Add("pause"); }
    Outcome Resume() override { return resumes ? Add("resume") : Outcome::Failed; }
    Outcome Cancel() override { return Add("cancel"); }
    std::string asked; ///< separated by blanks
    bool resumes = true;

private:
    Outcome Add(const std::string& word) {
        asked += (asked.empty() ? "" : " ") + word;
        return Outcome::Done;
    }
};

} // namespace tessa
