// visuals: what the player process starts to be looked at while it plays. It covers the screen
// until a touch, a key or its window's end, and goes with the player.
#include "platform/paths.h"
#include "visuals/window/vis_window.h"

#include <QGuiApplication>

int main(int count, char** words) {
    QGuiApplication application(count, words);
    QGuiApplication::setApplicationName(QStringLiteral("visuals"));
    vk::VisWindow window(vk::FindFolders(vk::ExecutableFolder()));
    window.showFullScreen();
    return QGuiApplication::exec();
}
