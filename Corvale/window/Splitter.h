#pragma once

#include <QSplitter>

namespace corvale {

class Theme;

// A splitter whose handle is a hairline.
class Splitter : public QSplitter {
public:
    // The theme outlives the splitter.
    Splitter(Theme& theme, QWidget* parent);

protected:
    QSplitterHandle* createHandle() override;

private:
    Theme& m_theme;
};

}  // namespace corvale
