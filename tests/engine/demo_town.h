// The invented town as a map, made once for all tests of a program.
#pragma once

#include "tests/paths.h"
#include "tests/support/temp_folder.h"

#include <QProcess>

#include <string>

namespace vk::test {

struct DemoTown {
    static const DemoTown& Get() {
        static const DemoTown town;
        return town;
    }
    std::string Map() const { return folder.File("town.bin"); }
    std::string Extract() const { return folder.File("town.osm"); }
    std::string Drive() const { return folder.File("drive.nmea"); }

    TempFolder folder;

  private:
    DemoTown() {
        const QString path = QString::fromStdString(folder.Path());
        const QString script = QString(VK_SOURCE_DIR) + "/tools/make_demo_town.py";
        QProcess maptool;
        maptool.setStandardErrorFile(QProcess::nullDevice());
        maptool.setWorkingDirectory(path);
        if (QProcess::execute("python3", {script, path}) != 0) return;
        maptool.start("maptool", {"-U", "-i", "town.osm", "town.bin"});
        maptool.waitForFinished(-1);
    }
};

} // namespace vk::test
