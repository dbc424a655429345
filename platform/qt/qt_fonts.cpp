#include "platform/qt/qt_fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace vk {

namespace {

std::string Folded(const QString& name) {
    return name.toCaseFolded().toStdString();
}

} // namespace

bool QtFonts::FontExists(const std::string& name) const {
    if (families_.empty())
        for (const QString& family : QFontDatabase::families()) {
            families_.insert(Folded(family));
            // A family of several foundries is listed as "Name [foundry]".
            families_.insert(Folded(family.section(QStringLiteral(" ["), 0, 0)));
        }
    return families_.contains(Folded(QString::fromStdString(name)));
}

} // namespace vk
