#include "tests/Corvale/commands/SocketWatch.h"

#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

namespace {

std::atomic<int> sockets = 0;

}  // namespace

// Found before the C library's by every library of this process, since the program exports it.
extern "C" int socket(int domain, int type, int protocol) noexcept {
    ++sockets;
    return static_cast<int>(syscall(SYS_socket, domain, type, protocol));
}

namespace corvale::TestSupport {

int socketsOpened() { return sockets; }

}  // namespace corvale::TestSupport
