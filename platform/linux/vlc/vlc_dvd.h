// Discs by libVLC.
#pragma once

#include "platform/dvd/disc_index.h"
#include "platform/dvd_player.h"

#include <string>

namespace vk {

class VlcFilm;

class VlcDvd : public DvdPlayer {
  public:
    /// The film that the disc is shown by; outlives this object.
    explicit VlcDvd(VlcFilm& film) : film_(film) {}

    void Directory(const std::string& path) override;
    const std::string& Directory() const override { return directory_; }
    void Press(DvdKey key) override;
    void Touch(double x, double y) override;
    void RootMenu() override;
    void NextChapter() override;
    void PreviousChapter() override;
    int Title() const override { return title_; }
    void Title(int title) override;
    DvdDomain CurrentDomain() const override { return domain_; }
    bool InMenu() const override { return domain_ == DvdDomain::TitleMenu; }
    bool UOPValid(int flag) const override;

    /// The film is at this title now, 0 for a menu.
    void Navigated(int title);
    /// It has come to its end.
    void Ended() { Enter(DvdDomain::Stop); }

  private:
    DiscTitle Current() const;
    void Enter(DvdDomain domain);
    void Notify(DvdEvent event, int parameter) const;

    VlcFilm& film_;
    std::string directory_;
    int title_ = 0;
    DvdDomain domain_ = DvdDomain::None;
};

} // namespace vk
