#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace corvale {

// Writes numbers that mostly are one more than the last: counting up in ASCII costs less than dividing.
class RunningNumber {
public:
    // As Numbers::append would.
    void append(std::string& target, std::int64_t value) {
        if (value <= 0 || value - 1 != m_value || !countUp()) {
            const auto end = std::to_chars(m_digits.data(), m_digits.data() + m_digits.size(), value).ptr;
            m_length = static_cast<std::size_t>(end - m_digits.data());
        }
        m_value = value;
        target.append(m_digits.data(), m_length);
    }

private:
    // Of a number without a sign; false where it becomes longer.
    bool countUp() {
        for (std::size_t i = m_length; i > 0; --i) {
            if (m_digits[i - 1] != '9') {
                ++m_digits[i - 1];
                return true;
            }
            m_digits[i - 1] = '0';
        }
        return false;
    }

    std::array<char, 20> m_digits{};
    std::size_t m_length = 0;
    std::int64_t m_value = 0;
};

}  // namespace corvale
