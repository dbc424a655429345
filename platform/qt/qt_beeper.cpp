#include "platform/qt/qt_beeper.h"

#include <QApplication>

namespace vk {

void QtBeeper::Beep() {
    QApplication::beep();
}

} // namespace vk
