#pragma once

#include <QTranslator>
#include <string>

namespace corvale {

// The window in another language than English, for as long as this lives. Needs an application object; views made
// before it keep their texts.
class Translation {
public:
    // Qt's own texts come along where its translations are installed. Argument: an ISO 639 code.
    explicit Translation(const std::string& language);

    // False where the texts stay English.
    bool isLoaded() const { return !m_own.isEmpty(); }

private:
    QTranslator m_own;
    QTranslator m_qts;
};

}  // namespace corvale
