#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QPoint>
#include <QProcess>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/end-to-end/Twin.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::TestSupport {

// The program on its screen, used by a user who has nothing stored but to have been welcomed.
class ProgramTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Throws when it takes too long, since what comes next would too.
    void waitUntil(const std::string& what, const std::function<bool()>& holds);

    // Waits for a window with this title, gives it the keys and returns it.
    QByteArray turnToWindow(const QString& title);
    // Starts with these files and turns to its main window. The twin is made anew, from what is stored now.
    void startProgram(const std::vector<std::string>& files = {});
    // By Ctrl+Q; the program ends well.
    void quit();
    // Has the program's panel, whose title begins so, take a file.
    void answerPanel(const QString& title, const std::string& path);

    void click(QPoint positionInWindow);
    void click(const QString& control) { click(m_twin->middleOf(control)); }

    // Goes on with pressing the keys and copying until the selected row is that one; gives the last that it was. The
    // keys lead to the same row however often they are pressed.
    std::string rowAfter(const QString& keys, const std::string& expected);

    // What is stored, as the model reads it.
    AppSettings settings() const;
    void store(const AppSettings& settings);

    ScratchFolder m_folder;
    QString m_settingsFile = QString::fromStdString(m_folder.at("config/Corvale/Corvale.conf"));
    std::optional<Twin> m_twin;
    QProcess m_program;
    QByteArray m_window;

private:
    QString privateFolder() const;
};

}  // namespace corvale::TestSupport
