// Discs by libVLC.
#pragma once

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
    void RootMenu() override;
    void NextChapter() override;
    void PreviousChapter() override;
    bool InMenu() const override { return inMenu_; }

    /// The film has changed its title or chapter.
    void Navigated();

  private:
    VlcFilm& film_;
    std::string directory_;
    bool inMenu_ = false;
};

} // namespace vk
