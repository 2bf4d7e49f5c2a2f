#include "Corvale/window/Splitter.h"

#include <QPainter>
#include <QSplitterHandle>

#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

class Handle : public QSplitterHandle {
public:
    Handle(Theme& theme, QSplitter* parent) : QSplitterHandle(parent->orientation(), parent), m_theme(theme) {
        connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), m_theme.palette().border);
    }

private:
    Theme& m_theme;
};

}  // namespace

Splitter::Splitter(Theme& theme, QWidget* parent) : QSplitter(parent), m_theme(theme) {
    // So thin a handle is easy to hit all the same: it takes the mouse from a few pixels beside it.
    setHandleWidth(1);
}

QSplitterHandle* Splitter::createHandle() { return new Handle(m_theme, this); }

}  // namespace corvale
