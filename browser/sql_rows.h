// Rows from records of the catalogue.
#pragma once

#include "browser/list_desk.h"

#include <string>

namespace vk {

/// What is given outlives it.
class SqlRows {
  public:
    explicit SqlRows(ListDesk& shared) : desk(shared) {}

    /// The heading, another one in the mode that builds a list.
    void SetTitle(const std::string& browsing, const std::string& building);
    /// A row that leads to another list of the catalogue.
    void AddMenu(const std::string& text, const Descriptor& list);
    /// A row for each record of one column: its text, and in the argument of `list` between `start`
    /// and `end` what is stored. A list that stays empty says so.
    void AddRecords(const std::string& sql, const std::string& list, const std::string& start,
                    const std::string& end);
    /// A row for each file that a query finds. A list that stays empty says so.
    void AddFiles(const std::string& sql);

    ListDesk& desk;
};

} // namespace vk
