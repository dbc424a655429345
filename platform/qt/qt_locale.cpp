#include "platform/qt/qt_locale.h"

#include <QDate>
#include <QLocale>
#include <QTime>

namespace vk {

namespace {

QDate DateOf(const DateTime& when) {
    return {when.year, when.month, when.day};
}

} // namespace

std::string QtLocaleInfo::DecimalSymbol() const {
    return QLocale::system().decimalPoint() == QLatin1String(",") ? "," : ".";
}

std::string QtLocaleInfo::LongDate(const DateTime& when) const {
    return QLocale::system().toString(DateOf(when), QLocale::LongFormat).toStdString();
}

std::string QtLocaleInfo::MediumDate(const DateTime& when) const {
    return QLocale::system()
        .toString(DateOf(when), QStringLiteral("dddd, MMM d, yyyy"))
        .toStdString();
}

// Some locales have the seconds in their short form; clocks here are not written every second.
std::string QtLocaleInfo::ShortTime(const DateTime& when) const {
    const QLocale locale = QLocale::system();
    QString format = locale.timeFormat(QLocale::ShortFormat);
    for (const char* seconds : {":ss", ".ss", ":s"})
        format.remove(QLatin1String(seconds));
    return locale.toString(QTime(when.hour, when.minute, when.second), format).toStdString();
}

} // namespace vk
