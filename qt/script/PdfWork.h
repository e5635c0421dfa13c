#pragma once
#include "qt/script/PdfBinder.h"

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace tessa::qt {

/// Binds PDF files beside the window, one after the other: two thousand pages take a while. Whoever ends it stops what
/// is not done.
class PdfWork final : public QObject {
public:
    PdfWork() { m_thread.setMaxThreadCount(1); }
    ~PdfWork() override;

    /// Who hears how it goes, in this object's thread.
    struct Told {
        std::function<void(const PdfBinder::Bound&)> bound;
        std::function<void(int percent)> progress{};
    };
    /// What it answers stops that one.
    std::function<void()> Bind(std::vector<PdfBinder::Part> parts, const QString& file, Told told);

private:
    using Stop = std::atomic<bool>;

    std::vector<std::weak_ptr<Stop>> m_stops; ///< of those that are not done
    QThreadPool m_thread;
};

} // namespace tessa::qt
