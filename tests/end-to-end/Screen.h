#pragma once

#include <QProcess>
#include <string>

namespace corvale::TestSupport {

// A screen in memory, with mouse and keyboard but without a window manager; gone with this object. Afterwards this
// process and those that it starts show their windows there.
class Screen {
public:
    // What has to be installed first, as a sentence; empty when nothing has.
    static std::string whatIsMissing();

    // To be made before the application object. Throws std::runtime_error when there is no screen to be had.
    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

private:
    QProcess m_server;
};

}  // namespace corvale::TestSupport
