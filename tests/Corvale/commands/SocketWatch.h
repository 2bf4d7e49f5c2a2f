#pragma once

namespace corvale::TestSupport {

// How many sockets this process has asked the system for; the program takes the place of the C library's socket().
// Those of glibc's own look-ups of names are not among them.
int socketsOpened();

}  // namespace corvale::TestSupport
