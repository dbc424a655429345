// The settings page of the programs that can be started.
#pragma once

#include "core/base.h"
#include "hosting/apps_list.h"
#include "platform/installed_programs.h"
#include "settings/pages/page.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// Adds programs to the list and takes them out again.
class ExternalAppPage {
  public:
    using Installed = std::function<std::vector<InstalledProgram>()>;
    /// `list` outlives the page.
    ExternalAppPage(Base& base, const AppsList& list, Installed installed)
        : base_(base), list_(list), installed_(std::move(installed)) {}

    /// `settingsExternalApp`; it may be asked as long as this object lives.
    Page Describe();
    /// Asks for a program, its arguments, its name and its size, and adds it.
    void Add();
    /// Takes the one that is shown out of the list, after a question.
    void Remove();

  private:
    std::string Shown() const;
    void Step(int by);
    std::string AskProgram() const;
    bool AskArguments(std::string& command, std::string offered) const;
    bool AlreadyListed(const std::string& program) const;
    void AskSize(ListedApp& app) const;

    Base& base_;
    const AppsList& list_;
    Installed installed_;
    std::size_t shown_ = 0; ///< of `lstExtApps`
};

} // namespace vk
