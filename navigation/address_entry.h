// The entry of an address on the drawn keyboard: city, street, house number.
#pragma once

#include "skin/text_entry.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

class AddressEntry {
  public:
    /// What is done with an address.
    using Entered = std::function<void(const std::string& city, const std::string& street,
                                       const std::string& houseNumber)>;
    /// `text` outlives this object.
    AddressEntry(TextEntry& text, Entered entered) : text_(text), entered_(std::move(entered)) {}

    /// Asks for the city first. Leaving the keyboard ends all of it.
    void FindRouteNow();

  private:
    enum Step : int { City = 1, Street, HouseNumber };
    TextQuestion Question(Step step);
    std::shared_ptr<TextQuestion> Next(Step step, const std::string& text);

    TextEntry& text_;
    Entered entered_;
    std::string enteredCity_, enteredStreet_;
};

} // namespace vk
