#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/SystemFiles.h"
#include "cli/ArgumentParser.h"
#include "cli/Commands.h"
#include "cli/DisplayText.h"
#include "cli/ExitStatus.h"
#include "cli/Interrupt.h"
#include "cli/Output.h"

namespace {

int trouble(std::string_view message) {
    const std::string line = "corvale-cli: " + corvale::Cli::DisplayText::oneLine(message) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return corvale::Cli::ExitStatus::trouble;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        corvale::SystemFiles::outliveSizeLimit();
        corvale::Cli::Interrupt::install();
        corvale::Cli::Output output(stdout);
        corvale::Cli::run(corvale::Cli::parseArguments({argv + (argc > 0 ? 1 : 0), argv + argc}), output);
    } catch (const corvale::Cancelled&) {
        return corvale::Cli::ExitStatus::interrupted;
    } catch (const std::bad_alloc&) {
        return trouble("This computer doesn’t have enough memory for these files.");
    } catch (const std::exception& failure) {
        return trouble(failure.what());
    }
}
