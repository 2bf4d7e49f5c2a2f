#pragma once

#include <climits>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Walks through an XML part of a workbook, event by event. All texts are UTF-8, whatever the part's encoding.
namespace corvale::XMLEvents {

// A view into the parser's memory.
class Attribute {
public:
    Attribute(const char* name, const char* value) : m_name(name), m_value(value) {}

    // With its namespace prefix.
    std::string_view name() const { return m_name; }
    std::string_view value() const { return m_value; }
    // Whether the name is that one letter, for the elements of which there are millions.
    bool is(char letter) const { return m_name[0] == letter && m_name[1] == '\0'; }

private:
    const char* m_name;
    const char* m_value;
};

// The attributes of one element in the order of the part. Valid during its start event.
class Attributes {
public:
    class Iterator {
    public:
        explicit Iterator(const char* const* pair) : m_pair(pair) {}
        Attribute operator*() const { return {m_pair[0], m_pair[1]}; }
        Iterator& operator++() {
            m_pair += 2;
            return *this;
        }
        // The parser ends the list with a null in place of a name, so that its end is known only when it is reached.
        friend bool operator==(const Iterator& place, std::nullptr_t) { return *place.m_pair == nullptr; }

    private:
        const char* const* m_pair;
    };

    // Names and values by turns, then a null.
    explicit Attributes(const char* const* pairs) : m_pairs(pairs) {}

    Iterator begin() const { return Iterator(m_pairs); }
    static std::nullptr_t end() { return nullptr; }

    // By the name with its prefix.
    std::optional<std::string_view> find(std::string_view name) const;

private:
    const char* const* m_pairs;
};

// What a kind of part does with its elements. Their names come without a namespace prefix. What a handler throws ends
// the walk and reaches the caller of parse.
class Handler {
public:
    Handler() = default;
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
    virtual ~Handler() = default;

    // Returns whether the character data inside the element is wanted.
    virtual bool onStart(std::string_view name, const Attributes& attributes) = 0;
    // `text` is the wanted character data since the last tag, of whatever element; the handler may take it away.
    virtual void onEnd(std::string_view name, std::string& text) = 0;
};

// External entities are never read, and neither nested elements nor entities can make memory explode. The parser gets
// the part in pieces of at most `piece` bytes. Throws XLSX::Failure when the part is no well-formed XML, and
// std::bad_alloc.
void parse(std::string_view part, Handler& handler, std::size_t piece = INT_MAX);

}  // namespace corvale::XMLEvents
