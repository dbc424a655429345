#include "library/sort.h"

#include <utility>

namespace vk {

void ShellSortVariantArray(std::vector<std::string>& array) {
    for (std::size_t gap = array.size() / 2; gap > 0; gap /= 2) {
        for (std::size_t i = gap; i < array.size(); ++i) {
            for (std::size_t j = i; j >= gap && array[j] < array[j - gap]; j -= gap)
                std::swap(array[j], array[j - gap]);
        }
    }
}

} // namespace vk
