#include "navigation/address_entry.h"

#include <utility>

namespace vk {

void AddressEntry::FindRouteNow() {
    text_.Open(Question(City));
}

TextQuestion AddressEntry::Question(Step step) {
    constexpr const char* Prompts[] = {"Enter City", "Enter Street", "Enter House Number"};
    TextQuestion question;
    question.caption = Prompts[step - City];
    question.next = [this, step](const std::string& text) { return Next(step, text); };
    question.answer = [this](const std::optional<std::string>& houseNumber) {
        if (houseNumber) entered_(enteredCity_, enteredStreet_, *houseNumber);
    };
    return question;
}

std::shared_ptr<TextQuestion> AddressEntry::Next(Step step, const std::string& text) {
    if (step == HouseNumber) return nullptr;
    (step == City ? enteredCity_ : enteredStreet_) = text;
    return std::make_shared<TextQuestion>(Question(step == City ? Street : HouseNumber));
}

} // namespace vk
