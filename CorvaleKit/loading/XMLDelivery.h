#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XMLEvents {

// Passes the events of one part to its handler, whichever parser finds them, and collects the wanted text between two
// tags. Names come with their prefix.
class Delivery {
public:
    explicit Delivery(Handler& handler) : m_handler(handler) {}

    // Of the elements that are open; 1 inside the outermost.
    int depth() const { return m_depth; }

    void start(std::string_view name, const Attributes& attributes) {
        ++m_depth;
        m_text.clear();
        if (isKnown()) {
            return;
        }
        if (m_handler.onStart(withoutPrefix(name), attributes) && m_wantedDepth == 0) {
            m_wantedDepth = m_depth;
        }
    }

    void text(std::string_view piece) {
        if (m_wantedDepth != 0) {
            m_text.append(piece);
        }
    }

    void end(std::string_view name) {
        if (!isKnown()) {
            m_handler.onEnd(withoutPrefix(name), m_text);
            if (m_depth == m_wantedDepth) {
                m_wantedDepth = 0;
            }
        }
        m_text.clear();
        --m_depth;
    }

    // From here on all events come again from the part's first: those that the handler has had are kept from it.
    void beginAgain() {
        m_known += m_delivered;
        m_delivered = 0;
        m_depth = 0;
        m_text.clear();
    }

private:
    static std::string_view withoutPrefix(std::string_view name) { return name.substr(name.rfind(':') + 1); }

    // Counts one event.
    bool isKnown() {
        if (m_known > 0) [[unlikely]] {
            --m_known;
            return true;
        }
        ++m_delivered;
        return false;
    }

    Handler& m_handler;
    std::string m_text;
    int m_depth = 0;
    int m_wantedDepth = 0;  // of the outermost element whose text is wanted; 0: none
    std::uint64_t m_delivered = 0;
    std::uint64_t m_known = 0;  // events still to be kept from the handler
};

}  // namespace corvale::XMLEvents
