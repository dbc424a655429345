// What happens when an operation fails: the log line, the message, the end of the application.
#pragma once

#include "core/debug_log.h"
#include "platform/dialogs.h"

#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace vk {

/// A failure with a number, as the error report shows it. Other exceptions count as number 5.
class Error : public std::runtime_error {
  public:
    explicit Error(const std::string& description, int number = 5)
        : std::runtime_error(description), number_(number) {}
    int Number() const { return number_; }

  private:
    int number_;
};

/// The error report. Set `unloadAll` to what closes every screen.
class ErrorReport {
  public:
    ErrorReport(const DebugLog& log, Dialogs& dialogs) : log_(log), dialogs_(dialogs) {}

    /// Logs `where`, description and number; unless the description is exactly "Skin Error" also
    /// shows them and ends the application. `flag` is accepted and not used. A failure while the
    /// report is already on show is only logged.
    void ReportError(const std::string& where, const std::string& description, int number,
                     bool flag = false);
    /// The log line alone, for operations that log and go on.
    void Log(const std::string& text) const { log_.WriteDebugLog(text); }

    std::function<void()> unloadAll;

  private:
    const DebugLog& log_;
    Dialogs& dialogs_;
    bool showing_ = false;
};

/// The number that the report shows for an exception.
int ErrorNumber(const std::exception& error);

/// Runs `operation`; when it throws, reports under `where` and returns `fallback`.
template<class Result, class Operation>
Result Trap(ErrorReport& report, const std::string& where, Result fallback, Operation operation) {
    try {
        return operation();
    } catch (const std::exception& error) {
        report.ReportError(where, error.what(), ErrorNumber(error));
        return fallback;
    }
}

/// The same for operations without a result.
template<class Operation>
void Trap(ErrorReport& report, const std::string& where, Operation operation) {
    try {
        operation();
    } catch (const std::exception& error) {
        report.ReportError(where, error.what(), ErrorNumber(error));
    }
}

/// Runs `operation`; when it throws, logs `where` and the error and goes on.
template<class Operation>
void TrapAndLog(const ErrorReport& report, const std::string& where, Operation operation) {
    try {
        operation();
    } catch (const std::exception& error) {
        report.Log(where + error.what());
    }
}

} // namespace vk
