#include "cli/FileSaving.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "cli/FileReading.h"
#include "cli/UnfinishedFile.h"

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace corvale::Cli {

namespace {

namespace Files = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

Files::path folderOf(const Files::path& path) { return path.has_parent_path() ? path.parent_path() : Files::path("."); }

bool isWritable(const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "r+b");
    return file != nullptr && std::fclose(file) == 0;
}

// A link stays a link: what it points to is replaced.
Files::path linkedFile(const Files::path& path) {
    std::error_code error;
    const Files::path target = Files::is_symlink(path, error) ? Files::weakly_canonical(path, error) : path;
    return error ? path : target;
}

// Beside the file that it will replace, since a rename cannot cross file systems; hidden, like no other's name, and
// short, since a file's own name may be as long as any can be.
std::string temporaryPath(const Files::path& target) {
    std::random_device random;
    return (folderOf(target) / (".corvale-" + std::to_string(random()))).string();
}

// A new file, deleted when it goes, unless it was put in place of another.
class TemporaryFile {
public:
    explicit TemporaryFile(const Files::path& target)
        : m_path(temporaryPath(target)), m_unfinished(m_path), m_file(std::fopen(m_path.c_str(), "wbx")) {
        require(m_file != nullptr);
    }
    ~TemporaryFile() {
        if (m_file != nullptr) {
            std::fclose(m_file);
        }
        if (!m_isInPlace) {
            std::remove(m_path.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // To the disk itself: a rename may outlive a power cut that the contents do not.
    void write(std::string_view bytes) {
        require(std::fwrite(bytes.data(), 1, bytes.size(), m_file) == bytes.size());
        require(std::fflush(m_file) == 0);
#if __has_include(<unistd.h>)
        require(::fsync(::fileno(m_file)) == 0 || errno == EINVAL || errno == ENOTSUP);
#endif
        std::FILE* const file = m_file;
        m_file = nullptr;
        require(std::fclose(file) == 0);
    }

    void replace(const Files::path& target) {
        std::error_code none;
        if (const Files::file_status old = Files::status(target, none); Files::is_regular_file(old)) {
            Files::permissions(m_path, old.permissions(), none);
        }
        Files::rename(m_path, target);
        m_isInPlace = true;
    }

private:
    static void require(bool succeeded) {
        if (!succeeded) {
            throw std::system_error(lastError());
        }
    }

    const std::string m_path;
    const UnfinishedFile m_unfinished;
    std::FILE* m_file;
    bool m_isInPlace = false;
};

}  // namespace

void refuseUnwritable(const std::string& path) {
    std::error_code error;
    const Files::file_status status = Files::status(path, error);
    if (Files::is_directory(status)) {
        throw FileFailure(quotedPath(path) + " is a folder, not a file.");
    }
    if (Files::exists(status) && !Files::is_regular_file(status)) {
        throw FileFailure(quotedPath(path) + " is not a file.");
    }
    // Replacing a file takes no right to write to it; who took that right away means it to stay.
    if (Files::exists(status) && !isWritable(path)) {
        throw FileFailure(quotedPath(path) + " can’t be written: " + lastError().message() + ".");
    }
    const Files::path folder = folderOf(path);
    if (!Files::exists(folder, error)) {
        throw FileFailure("The folder " + quotedPath(folder.string()) + " doesn’t exist.");
    }
}

void saveFile(const std::string& path, std::string_view bytes) {
    refuseUnwritable(path);
    try {
        const Files::path target = linkedFile(path);
        TemporaryFile file(target);
        file.write(bytes);
        file.replace(target);
    } catch (const std::system_error& failure) {
        throw FileFailure(quotedPath(path) + " can’t be written: " + failure.code().message() + ".");
    }
}

}  // namespace corvale::Cli
