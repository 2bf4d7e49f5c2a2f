#include "tests/Corvale/window/WindowFixture.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLocale>
#include <QTest>

#include "Corvale/window/PopupMenu.h"

namespace corvale::TestSupport {

namespace {

QString textOf(const QAction& action) { return action.text().replace(QStringLiteral("&&"), QStringLiteral("&")); }

QString described(const QAction& action) {
    const QString text = textOf(action);
    if (action.isSeparator()) {
        return text.isEmpty() ? QStringLiteral("-") : u'[' + text + u']';
    }
    const QString shown = action.isEnabled() ? text : u'(' + text + u')';
    return action.isChecked() ? QStringLiteral("✓ ") + shown : shown;
}

// As the window finds it when the welcome sheet was seen before.
ScriptedPlatform& prepared(ScriptedPlatform& platform) {
    AppSettings settings;
    settings.onboardingDone = true;
    platform.stored["settings"] = settings.encoded();
    return platform;
}

}  // namespace

std::vector<std::string> itemsOf(const Button& button) {
    button.menu()->open();
    std::vector<std::string> items;
    for (const QAction* action : button.menu()->actions()) {
        items.push_back(described(*action).toStdString());
    }
    button.menu()->close();
    return items;
}

void pick(const Button& button, const std::string& item) {
    button.menu()->open();
    for (QAction* action : button.menu()->actions()) {
        if (textOf(*action) == QString::fromStdString(item)) {
            QTest::mouseClick(button.menu(), Qt::LeftButton, {}, button.menu()->actionGeometry(action).center());
            button.menu()->close();
            return;
        }
    }
    button.menu()->close();
    ADD_FAILURE() << "no item " << item;
}

std::unique_ptr<QMimeData> dragOf(const std::vector<std::string>& paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const std::string& path : paths) {
        urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
    }
    data->setUrls(urls);
    return data;
}

WindowTest::WindowTest() : m_model(prepared(m_platform)), m_window(m_model, m_platform, theme()) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    m_window.show();
    m_window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
}

void WindowTest::compare(const std::string& before, const std::string& after) {
    m_platform.files["before.csv"] = before;
    m_platform.files["after.csv"] = after;
    m_model.open({ScriptedPlatform::url("before.csv"), ScriptedPlatform::url("after.csv")}, Side::before);
    m_platform.settle();
}

void WindowTest::open(const std::string& text, Side side, const std::string& name) {
    m_platform.files[name] = text;
    m_model.load(ScriptedPlatform::url(name), side);
    m_platform.settle();
}

QWidget* WindowTest::childNamed(const std::string& name) {
    // One that shows before one that does not: the two cards have parts of the same name.
    QWidget* found = nullptr;
    for (QWidget* widget : m_window.findChildren<QWidget*>()) {
        if (widget->accessibleName() == QString::fromStdString(name) &&
            (found == nullptr || (!found->isVisible() && widget->isVisible()))) {
            found = widget;
        }
    }
    return found;
}

bool WindowTest::shows(const std::string& name) {
    const QWidget* const widget = childNamed(name);
    return widget != nullptr && widget->isVisible();
}

std::string WindowTest::names() {
    QStringList names;
    for (const QWidget* widget : m_window.findChildren<QWidget*>()) {
        if (!widget->accessibleName().isEmpty()) {
            names.append(widget->accessibleName());
        }
    }
    return names.join(u'\n').toStdString();
}

bool WindowTest::dragInto(QWidget& target, const std::vector<std::string>& paths) {
    const auto data = dragOf(paths);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&target, &enter);
    return enter.isAccepted();
}

void WindowTest::dragOutOf(QWidget& target) {
    QDragLeaveEvent leave;
    QApplication::sendEvent(&target, &leave);
}

bool WindowTest::drop(QWidget& target, const std::vector<std::string>& paths) {
    if (!dragInto(target, paths)) {
        dragOutOf(target);
        return false;
    }
    const auto data = dragOf(paths);
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

}  // namespace corvale::TestSupport
