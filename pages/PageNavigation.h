#pragma once

namespace tessa {

/// How far a view has come, in three states at once. They are what was asked for, what the engine loads, and what is
/// shown. One page may be shown while another loads and a third one waits for its turn.
class PageNavigation {
public:
    /// What was asked for and has not begun.
    enum class Wish {
        None,
        Waiting, ///< for its turn
        PutOff,  ///< until somebody looks at the view
    };
    /// What the engine is doing. It finishes a load and tells how that has ended, in either order.
    enum class Load {
        Quiet,
        Loading,
        Finished, ///< how it has ended was not told yet
        Told,     ///< how it has ended was told; it has not finished
    };
    /// What is shown.
    enum class Shown {
        Nothing,
        Overdue, ///< still nothing, and what is to come takes long
        Document,
    };
    /// What is known of the document shown.
    enum class Kind { Unknown, Page, Error };

    [[nodiscard]] Wish Wanted() const { return m_wish; }
    [[nodiscard]] Load Loading() const { return m_load; }
    [[nodiscard]] Shown What() const { return m_shown; }
    [[nodiscard]] Kind Known() const { return m_kind; }

    [[nodiscard]] bool Waits() const { return m_wish != Wish::None; }
    [[nodiscard]] bool Busy() const { return m_load == Load::Loading || m_load == Load::Told; }
    [[nodiscard]] bool HasDocument() const { return m_shown == Shown::Document; }
    /// Another page has opened the view, and may have filled it.
    [[nodiscard]] bool Opened() const { return m_opened; }

    // What is asked for.

    void Ask();
    /// What was asked for waits until somebody looks.
    void PutOff();
    /// Somebody looks: whether that brings what was put off its turn.
    [[nodiscard]] bool Look();
    /// What was asked for begins.
    void Begin();
    /// What was asked for is not wanted any more: whether there was something.
    bool GiveUp();
    /// Another page opens the view, and what was asked for does not come.
    void Open();

    // What the engine tells.

    /// The page goes to another address; its document is to come.
    void Leave() { m_leaves = true; }
    void StartLoad() { m_load = Load::Loading; }
    void FinishLoad();
    /// What was on its way has come, or never will; there is a document if `shows`.
    void EndLeaving(bool shows);
    /// How the load has ended is told: false when it was before.
    [[nodiscard]] bool TellEnd();
    /// The page's process has died.
    void Die() { m_load = Load::Quiet; }
    /// A document is shown, the one that was to come or the one before at another address.
    void ShowDocument();
    /// Whether the document is an error's: false when that was known.
    [[nodiscard]] bool Know(Kind kind);
    /// What is to come takes long.
    void BeLate();

private:
    Wish m_wish = Wish::None;
    Load m_load = Load::Quiet;
    Shown m_shown = Shown::Nothing;
    Kind m_kind = Kind::Unknown;
    bool m_leaves = false; ///< the next document is another one
    bool m_opened = false;
};

} // namespace tessa
