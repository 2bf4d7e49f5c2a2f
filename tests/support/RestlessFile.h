#pragma once

#include <atomic>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>

namespace corvale::TestSupport {

// A file of `size` equal letters that somebody writes over all the time, now with one letter, now with another, and
// always in its place.
class RestlessFile {
public:
    RestlessFile(std::string path, std::size_t size) : m_path(std::move(path)), m_size(size) {
        std::ofstream(m_path, std::ios::binary) << std::string(m_size, 'a');
        m_writer = std::thread([this] { write(); });
    }
    ~RestlessFile() {
        m_ends = true;
        m_writer.join();
    }
    RestlessFile(const RestlessFile&) = delete;
    RestlessFile& operator=(const RestlessFile&) = delete;

    // True when the bytes are those of one moment.
    static bool isOfOneMoment(std::string_view bytes) {
        return bytes.find_first_not_of(bytes.substr(0, 1)) == std::string_view::npos;
    }

private:
    void write() {
        constexpr std::size_t piece = std::size_t{64} << 10U;
        std::fstream file(m_path, std::ios::binary | std::ios::in | std::ios::out);
        for (char letter = 'b'; !m_ends; letter = letter == 'a' ? 'b' : 'a') {
            file.seekp(0);
            const std::string letters(piece, letter);
            for (std::size_t done = 0; done < m_size && !m_ends; done += piece) {
                file.write(letters.data(), static_cast<std::streamsize>(piece)).flush();
            }
        }
    }

    const std::string m_path;
    const std::size_t m_size;
    std::atomic<bool> m_ends = false;
    std::thread m_writer;
};

}  // namespace corvale::TestSupport
