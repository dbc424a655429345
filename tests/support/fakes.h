// Fakes of the small ports, scripted and asked by tests.
#pragma once

#include "platform/dialogs.h"
#include "platform/fonts.h"
#include "platform/locale_info.h"
#include "platform/volumes.h"
#include "platform/window_layer.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vk::test {

/// Records every text and answers from queues; an empty queue means OK, Yes, or cancelled input.
class FakeDialogs : public Dialogs {
  public:
    using Text = const std::string&;
    void ShowMessage(Text text, Text title, MessageKind) override {
        shown.push_back(text);
        titles.push_back(title);
        if (onShown) onShown();
    }
    bool AskYesNo(Text text, Text title) override { return Asked(text, title); }
    bool AskNoYes(Text text, Text title) override {
        noMarked.push_back(title);
        return Asked(text, title);
    }
    bool AskOkCancel(Text text, Text title) override { return Asked(text, title); }
    std::optional<std::string> InputBox(Text text, Text title, Text) override {
        ShowMessage(text, title, MessageKind::Plain);
        return inputs.empty() ? std::nullopt : std::optional(Next(inputs));
    }
    std::optional<int> Choose(Text title, const std::vector<std::string>& rows,
                              int marked) override {
        ShowMessage(Joined(rows) + "*" + std::to_string(marked), title, MessageKind::Plain);
        return choices.empty() ? std::nullopt : std::optional(Next(choices));
    }
    bool Await(Text text, Text title, Text, const std::function<bool()>& done) override {
        ShowMessage(text, title, MessageKind::Plain);
        return done();
    }
    std::string ChooseFolder(Text caption, Text) override {
        captions.push_back(caption);
        return folders.empty() ? std::string() : Next(folders);
    }
    std::string ChooseFile(const FileChoice& choice) override {
        captions.push_back(choice.caption);
        lastChoice = choice;
        return folders.empty() ? std::string() : Next(folders);
    }

    bool Ending() const override { return ending; }

    std::function<void()> onShown; ///< while it stands there
    bool ending = false;
    std::vector<std::string> shown, titles, captions, noMarked;
    std::deque<bool> answers;
    std::deque<std::string> inputs, folders; ///< the latter for files, too
    std::deque<int> choices;
    FileChoice lastChoice;

  private:
    bool Asked(Text text, Text title) {
        ShowMessage(text, title, MessageKind::Plain);
        return answers.empty() || Next(answers);
    }
    static std::string Joined(const std::vector<std::string>& rows) {
        std::string text;
        for (const std::string& row : rows)
            text += row + " | ";
        return text;
    }
    template<typename T> static T Next(std::deque<T>& queue) {
        T next = std::move(queue.front());
        queue.pop_front();
        return next;
    }
};

/// An English locale whose decimal symbol can be set.
class FakeLocale : public LocaleInfo {
  public:
    std::string DecimalSymbol() const override { return symbol; }
    std::string LongDate(const DateTime&) const override { return "Saturday, November 21, 2026"; }
    std::string MediumDate(const DateTime&) const override { return "Saturday, Nov 21, 2026"; }
    std::string ShortTime(const DateTime& when) const override {
        return std::to_string(when.hour) + ":" + std::to_string(when.minute);
    }
    std::string symbol = ".";
};

/// Drives as a test lists them; the drive of a path is the longest root that begins it, else "/".
class FakeVolumes : public Volumes {
  public:
    std::vector<Drive> Drives() const override { return drives; }
    bool IsReady(const std::string& root) const override { return ready.contains(root); }
    std::string Label(const std::string& root) const override {
        return labels.contains(root) ? labels.at(root) : std::string();
    }
    std::int32_t Serial(const std::string& path) const override {
        return serials.contains(DriveOf(path)) ? serials.at(DriveOf(path)) : 0;
    }
    std::string DriveOf(const std::string& path) const override {
        std::string best = "/";
        for (const Drive& drive : drives)
            if (path.starts_with(drive.root) && drive.root.size() > best.size()) best = drive.root;
        return best;
    }
    std::vector<std::string> AudioTracks(const std::string& root) const override {
        return tracks.contains(root) ? tracks.at(root) : std::vector<std::string>();
    }
    bool Eject(const std::string& root) override {
        ejected.push_back(root);
        return true;
    }

    std::vector<Drive> drives;
    std::set<std::string> ready;
    std::map<std::string, std::string> labels;
    std::map<std::string, std::int32_t> serials;
    std::map<std::string, std::vector<std::string>> tracks;
    std::vector<std::string> ejected;
};

/// Every font is installed but those named.
class FakeFonts : public Fonts {
  public:
    bool FontExists(const std::string& name) const override { return !missing.contains(name); }
    std::set<std::string> missing;
};

/// Counts the calls to the foreground.
class FakeWindowLayer : public WindowLayer {
  public:
    void ForceForegroundWindow() override { ++foreground; }
    void SetTopmost(bool) override {}
    void ShowCursor(bool shown) override { cursor = shown; }
    int foreground = 0;
    bool cursor = true;
};

} // namespace vk::test
