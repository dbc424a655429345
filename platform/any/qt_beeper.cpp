#include "platform/any/qt_beeper.h"

#include <QApplication>

namespace vk {

void QtBeeper::Beep() {
    QApplication::beep();
}

} // namespace vk
