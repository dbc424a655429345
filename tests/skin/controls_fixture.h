// A window of 800x480 with a loaded skin of plain colours and pictures.
#pragma once

#include "skin/controls/control_context.h"
#include "tests/support/core_fixture.h"
#include "tests/support/mouse.h"

#include <QImage>
#include <QWidget>

#include <gtest/gtest.h>

namespace vk::test {

inline constexpr QRgb Ground = 0xFF102030;  ///< of the background picture
inline constexpr QRgb Marking = 0xFF00C000; ///< selection bar
inline constexpr QRgb Playing = 0xFFFF0000; ///< playing row
inline constexpr QRgb Folder = 0xFFFFFF00;  ///< folder rows
inline constexpr QRgb ArrowUp = 0xFF00FFFF; ///< pictures of the strips
inline constexpr QRgb ArrowDown = 0xFFFF00FF;

struct ControlsFixture : CoreFixture {
    ControlsFixture() {
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
        state.CurrentSkinFile = "My.skn";
        settings.values.ListSpacing = "3";
        settings.values.ShowSelBar = true;
        settings.values.UseAnimation = true;
        Picture("back.png", {80, 48}, Ground);
        Picture("up.png", {60, 10}, ArrowUp);
        Picture("down.png", {60, 10}, ArrowDown);
        LoadColours("");
        host.resize(800, 480);
        host.show();
    }
    /// Writes a picture of one colour into the skin's folder; returns its path.
    std::string Picture(const std::string& name, QSize size, QRgb colour) {
        std::string path = app.MakeFolder("skins/My") + "/" + name;
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        image.save(QString::fromStdString(path));
        return path;
    }
    /// Loads the skin with further colour keys.
    void LoadColours(const std::string& more) {
        app.Write("skins/My.skn",
                  "[Colors]\nListSelectedBackgroundClr=49152\ncurrentsongclr=255\n"
                  "PlayListFolderClr=65535\n" +
                      more + "[FONTS]\nListtextfontname=DejaVu Sans\nListtextfontsize=20\n");
        skin.LoadSkin();
    }
    /// Pixels of exactly this colour.
    static int Count(const QImage& image, QRgb colour) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == colour;
        return count;
    }
    static QImage Drawn(QWidget& widget) { return widget.grab().toImage(); }

    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    QWidget host;
};

} // namespace vk::test
