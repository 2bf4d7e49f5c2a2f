#pragma once

#include <memory>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// The result that a view has worked something out from. Keeps none alive, and never takes a new one for an old one that
// is gone.
class KnownResult {
public:
    // A null result is none.
    bool is(const std::weak_ptr<const DiffResult>& result) const {
        return !m_result.owner_before(result) && !result.owner_before(m_result);
    }

    // False when it is that one already.
    bool take(const std::shared_ptr<const DiffResult>& result) {
        const bool isNews = !is(result);
        m_result = result;
        return isNews;
    }

private:
    std::weak_ptr<const DiffResult> m_result;
};

}  // namespace corvale
