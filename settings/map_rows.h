// Rows by which a map is made for the navigation engine, as data.
#pragma once

#include "core/base.h"
#include "navigation/engine/map_maker.h"
#include "settings/pages/row.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// What a page shows of a map in the making, which goes on when the page is left.
class MapRows {
  public:
    /// `map` names the file that the engine reads; `made` hears of another one in its place.
    MapRows(Base& base, MakeChildProcess child, std::function<std::string()> map,
            std::function<void()> made);
    /// One that asks for an extract, or stops, and one that tells how far it is.
    std::vector<Row> Rows();

  private:
    void Ask();
    std::string Status() const;

    Base& base_;
    std::function<std::string()> map_;
    MapMaker maker_;
    std::string ended_, extract_;
};

} // namespace vk
