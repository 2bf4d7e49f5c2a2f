#pragma once

// Ctrl-C. Nothing but an UnfinishedFile is left behind whenever the program ends, so it deletes that and ends at once
// with status 130; only a comparison asks for the time to stop by itself.
namespace corvale::Cli::Interrupt {

// Takes over SIGINT, unless the program was started with it ignored. Once, before there is a second thread.
void install();

// While one of these lives, the first Ctrl-C only sets the flag that `isRequested` reads; a second one ends the
// program.
class Deferral {
public:
    Deferral();
    ~Deferral();
    Deferral(const Deferral&) = delete;
    Deferral& operator=(const Deferral&) = delete;
};

bool isRequested();

}  // namespace corvale::Cli::Interrupt
