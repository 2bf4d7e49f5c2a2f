#include "Corvale/style/Look.h"

#include <QStyle>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <iterator>

namespace corvale {

namespace {

constexpr char property[] = "look";

// In the order of the enumeration.
constexpr const char* names[] = {
    "",           "bar",       "surface",     "surfaceBar",  "card",           "emptyCard",     "dropTarget",
    "cardSide",   "segments",  "panel",       "popup",       "smallMenu",      "secondaryText", "placeholderText",
    "accentText", "addedText", "removedText", "changedText", "formatOnlyText", "warning",       "sidebar",
    "topics",     "nextLine",
};
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

Look lookOf(const QWidget& widget) {
    const QString name = widget.property(property).toString();
    const auto* found = std::find_if(
        std::begin(names), std::end(names), [&name](const char* each) { return name == QLatin1String(each); });
    return found == std::end(names) ? Look::none : static_cast<Look>(found - std::begin(names));
}

}  // namespace corvale
