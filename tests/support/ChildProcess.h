#pragma once

#include <functional>
#include <string>

// Work done in a copy of this process, which may give up rights that the tests still need.
namespace corvale::ChildProcess {

// What `work` returns there, or "threw: " and the text of the exception that it ends with. Failures that it adds are
// lost.
std::string run(const std::function<std::string()>& work);

// Begins `work` there and kills it, without a chance to tidy up, as soon as `isTime` holds here or it has ended.
void runAndKill(const std::function<void()>& work, const std::function<bool()>& isTime);

// Leaves no right beyond those of an ordinary user, whoever runs the tests.
void stepDown();

// No file may grow beyond that many bytes; who tries is told and lives.
void limitFileSizes(unsigned long bytes);

// Puts a disk of that many bytes into the folder, which only this process sees. False where the system does not allow
// it.
bool mountSmallDisk(const std::string& folder, unsigned long bytes);

}  // namespace corvale::ChildProcess
