// The settings pages as one screen with tabs, without its window.
#pragma once

#include "core/screens.h"
#include "settings/pages/page.h"
#include "settings/pages/plates.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

/// The window, as the pages ask for it. It asks them what to draw.
class PageView {
  public:
    virtual ~PageView() = default;
    virtual void DoLayout() = 0;
    /// Brings the window up, laid out anew.
    virtual void ShowPage() = 0;
    virtual void HidePage() = 0;
    /// Draws what has changed.
    virtual void Draw() = 0;
};

class PageScreen;

/// Which page and sheet is shown and which plate is marked, and what becomes of a key or touch.
class SettingsPages {
  public:
    /// All of it outlives this object.
    SettingsPages(Screens& screens, const KeyMap& keys, PageView& view);
    ~SettingsPages();
    SettingsPages(const SettingsPages&) = delete;
    SettingsPages& operator=(const SettingsPages&) = delete;

    /// Each page is a screen of its own name; the first is the one that the others lead back to.
    void Add(Page page);
    void AddTo(Screens& screens);
    void RemoveFrom(Screens& screens) const;

    const std::vector<Page>& All() const { return pages_; }
    /// What is to be seen: the tabs, the rows of the sheet, the footer.
    std::vector<Plate> Plates();
    int Marked() const { return places_[current_].marked; }
    std::string Heading() const;
    int RefreshMs() const { return Shown().refreshMs; }
    /// Uses a plate, by its number, that was touched.
    void Touch(int plate);
    /// Goes to the page `number`, leaving the one that is shown.
    void GoTo(std::size_t number);

  private:
    friend class PageScreen;
    /// Where the user was on a page.
    struct Place {
        int sheet = 0;
        int marked = -1; ///< -1: not been there yet
        int centre = 0;  ///< of the plate from which up and down set out
    };
    void Open(std::size_t number);
    void Leave();
    void Quit();
    void Use() { Touch(Marked()); }
    void Move(int dx, int dy);
    bool Key(const std::string& code);
    bool Code(const InputCode& code);
    bool Work(const InputCode& code);
    void NextSheet(int sheets);
    void AddTabs(std::vector<Plate>& plates);
    void AddFooter(std::vector<Plate>& plates, int sheets);
    void MarkFirst();
    const Page& Shown() const { return pages_[current_]; }

    Screens& screens_;
    const KeyMap& keys_;
    PageView& view_;
    std::vector<Page> pages_;
    std::vector<Place> places_;
    std::vector<std::unique_ptr<PageScreen>> doors_;
    std::size_t current_ = 0;
};

} // namespace vk
