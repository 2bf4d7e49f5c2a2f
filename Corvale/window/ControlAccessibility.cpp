#include "Corvale/window/ControlAccessibility.h"

#include <QAccessibleWidget>

#include "Corvale/window/Button.h"
#include "Corvale/window/ElidedLabel.h"
#include "Corvale/window/SymbolLabel.h"

namespace corvale {

namespace {

class MenuButtonInterface : public QAccessibleWidget {
public:
    explicit MenuButtonInterface(Button& button) : QAccessibleWidget(&button, QAccessible::ButtonMenu) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = button().menu()->isVisible();
        return state;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (button().isEnabled()) {
            names.prepend(showMenuAction());
        }
        return names;
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction() || name == pressAction()) {
            button().click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    Button& button() const { return *static_cast<Button*>(widget()); }
};

QAccessibleInterface* interfaceFor(const QString&, QObject* object) {
    if (auto* const button = dynamic_cast<Button*>(object)) {
        return button->menu() == nullptr ? nullptr : new MenuButtonInterface(*button);
    }
    if (dynamic_cast<ElidedLabel*>(object) != nullptr || dynamic_cast<SymbolLabel*>(object) != nullptr) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::StaticText);
    }
    return nullptr;
}

}  // namespace

void ControlAccessibility::install() { QAccessible::installFactory(interfaceFor); }

}  // namespace corvale
