#pragma once
#include "qt/script/PdfBinder.h"

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <functional>
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
    void Bind(std::vector<PdfBinder::Part> parts, const QString& file, Told told);

private:
    std::atomic<bool> m_stop = false;
    QThreadPool m_thread;
};

} // namespace tessa::qt
