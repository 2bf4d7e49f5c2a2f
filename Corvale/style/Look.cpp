#include "Corvale/style/Look.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>
#include <cstddef>
#include <iterator>

namespace corvale {

namespace {

constexpr char property[] = "look";

// In the order of the enumeration.
constexpr const char* names[] = {"", "surface", "card", "secondaryText", "sidebar", "topics", "nextLine"};
static_assert(std::size(names) == static_cast<std::size_t>(Look::nextLine) + 1);

}  // namespace

void setLook(QWidget& widget, Look look) {
    widget.setProperty(property, QLatin1String(names[static_cast<std::size_t>(look)]));
    // Without it a plain QWidget has no background of the style sheet.
    widget.setAttribute(Qt::WA_StyledBackground);
    // The style sheet chooses its rules when it polishes a widget, and again only when told to.
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
    widget.update();
}

}  // namespace corvale
