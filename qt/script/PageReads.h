#pragma once
#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tessa::qt {

class Engine;
class WebPage;
struct PrintedPage;

/// Reads what pages show, for whoever is not looking at them. Answers come later, and not at all from a page that goes
/// meanwhile or does not answer.
class PageReads {
public:
    /// The engine outlives it. A page that takes longer than that to be had whole is given up.
    explicit PageReads(Engine& engine, std::chrono::milliseconds patience = std::chrono::seconds(120))
        : m_engine(engine), m_patience(patience) {}

    /// Whether there is a page to be read. One that sleeps is woken, and one that waits until somebody looks need not
    /// wait any longer; both load before they can be read.
    [[nodiscard]] bool Wake(std::int32_t index);
    /// Calls `then` when these pages have told all that they had to tell when they had loaded: the engine brings the
    /// title a little later. One that is busy with itself is not waited for long.
    void Settle(const std::vector<std::uint32_t>& numbers, const std::function<void()>& then);
    /// Puts a page that was woken to sleep again, as far as the engine lets it.
    void Sleep(std::int32_t index);
    void Text(std::int32_t index, const std::function<void(const QString&)>& read);
    void Html(std::int32_t index, const std::function<void(const QString&)>& read);
    /// As it would be printed, or the document that a page of a PDF shows.
    void Pdf(std::int32_t index, const std::function<void(const PrintedPage&)>& read);
    /// Writes the page with all that belongs to it into one file; told whether that was done.
    void Keep(std::int32_t index, const QString& file, const std::function<void(bool)>& kept);
    /// What is seen of the page, which is in front, as PNG; once it has been painted.
    void Screenshot(std::int32_t index, const std::function<void(const QByteArray&)>& read);

private:
    [[nodiscard]] WebPage* Find(std::int32_t index) const;

    Engine& m_engine;
    const std::chrono::milliseconds m_patience;
};

} // namespace tessa::qt
