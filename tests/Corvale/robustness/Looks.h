#pragma once

namespace corvale {
class CorvaleApp;
}

// Whether the window shows what the model says, and the model is sound. With gtest's expectations; for when nothing is
// under way.
namespace corvale::TestSupport::Looks {

void expectSoundModel(CorvaleApp& app);
void expectWindowAsModel(CorvaleApp& app);

}  // namespace corvale::TestSupport::Looks
