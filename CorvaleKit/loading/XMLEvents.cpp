#include "CorvaleKit/loading/XMLEvents.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "CorvaleKit/loading/PlainXML.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/loading/XMLDelivery.h"

namespace corvale::XMLEvents {

namespace {

// The parser keeps memory for every open element; real parts nest a dozen deep.
constexpr int deepestElement = 1000;

class Walk {
public:
    explicit Walk(Delivery& delivery) : m_parser(XML_ParserCreate(nullptr), &XML_ParserFree), m_delivery(delivery) {
        if (!m_parser) {
            throw std::bad_alloc();
        }
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), &onStart, &onEnd);
        XML_SetCharacterDataHandler(m_parser.get(), &onText);
    }

    void feed(std::string_view bytes, bool isLast) {
        const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), isLast ? 1 : 0);
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
        if (status != XML_STATUS_OK) {
            fail(XML_GetErrorCode(m_parser.get()));
        }
    }

private:
    [[noreturn]] static void fail(XML_Error error) {
        if (error == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        const char* description = XML_ErrorString(error);
        throw XLSX::Failure(std::string("Part of the workbook couldn’t be read (") +
                            (description != nullptr ? description : "bad XML") + ").");
    }

    static void onStart(void* self, const char* name, const char** attributes) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) { walk.start(name, attributes); });
    }

    static void onEnd(void* self, const char* name) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) { walk.m_delivery.end(name); });
    }

    static void onText(void* self, const char* text, int length) {
        static_cast<Walk*>(self)->guarded([&](Walk& walk) {
            walk.m_delivery.text({text, static_cast<std::size_t>(length)});
        });
    }

    // No exception may cross the parser's C frames. A stopped parser may still send an event or two.
    template <typename Action>
    void guarded(Action action) noexcept {
        if (m_stopped) {
            return;
        }
        try {
            action(*this);
        } catch (...) {
            m_failure = std::current_exception();
            stop();
        }
    }

    void stop() {
        m_stopped = true;
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    // The parser gives names and values by turns, then a null.
    void start(const char* name, const char** pairs) {
        if (m_delivery.depth() == deepestElement) {
            stop();
            return;
        }
        m_attributes.clear();
        for (; *pairs != nullptr; pairs += 2) {
            m_attributes.emplace_back(pairs[0], pairs[1]);
        }
        m_delivery.start(name, Attributes(m_attributes.data(), m_attributes.size()));
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> m_parser;
    Delivery& m_delivery;
    std::vector<Attribute> m_attributes;  // of the current event
    bool m_stopped = false;
    std::exception_ptr m_failure;
};

void walk(std::string_view part, Delivery& delivery, std::size_t piece) {
    Walk walk(delivery);
    while (part.size() > piece) {
        walk.feed(part.substr(0, piece), false);
        part.remove_prefix(piece);
    }
    walk.feed(part, true);
}

}  // namespace

std::optional<std::string_view> Attributes::find(std::string_view name) const {
    for (const Attribute attribute : *this) {
        if (attribute.name() == name) {
            return attribute.value();
        }
    }
    return std::nullopt;
}

void parse(std::string_view part, Handler& handler) {
    Delivery delivery(handler);
    if (!PlainXML::deliver(part, delivery)) {
        delivery.beginAgain();
        walk(part, delivery, INT_MAX);
    }
}

void parseGenerally(std::string_view part, Handler& handler, std::size_t piece) {
    Delivery delivery(handler);
    walk(part, delivery, piece);
}

}  // namespace corvale::XMLEvents
