#pragma once

namespace MacMenuBaseline {

// Ends the process, in every build, unless the caller is on the thread of the application object: windows touched from
// elsewhere break at some later time and place. `operation` is named in the message.
void requireMainThread(const char* operation);

}  // namespace MacMenuBaseline
