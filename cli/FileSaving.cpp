#include "cli/FileSaving.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include "cli/Paths.h"
#include "cli/UnfinishedFile.h"

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace corvale::Cli {

namespace {

namespace Files = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

Files::path folderOf(const Files::path& path) { return path.has_parent_path() ? path.parent_path() : Files::path("."); }

void require(bool succeeded) {
    if (!succeeded) {
        throw std::system_error(lastError());
    }
}

// What a link finally points to, which need not exist.
Files::path linkedFile(Files::path path) {
    constexpr int mostLinks = 40;
    for (int links = 0; Files::is_symlink(Files::symlink_status(path)); ++links) {
        if (links == mostLinks) {
            throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels));
        }
        path = path.parent_path() / Files::read_symlink(path);
    }
    return path;
}

// Beside the file that it will replace, since a rename cannot cross file systems; hidden, like no other's name, and
// short, since a file's own name may be as long as any can be.
std::string temporaryPath(const Files::path& target) {
    std::random_device random;
    return (folderOf(target) / (".corvale-" + std::to_string(random()))).string();
}

// A new file with the access rights of the one that it will replace, deleted when it goes, unless it was put in place.
class TemporaryFile {
public:
    explicit TemporaryFile(const Files::path& target)
        : m_path(temporaryPath(target)), m_unfinished(m_path), m_file(std::fopen(m_path.c_str(), "wbx")) {
        require(m_file != nullptr);
        std::error_code none;
        if (const Files::file_status old = Files::status(target, none); Files::is_regular_file(old)) {
            constexpr auto rights = Files::perms::owner_all | Files::perms::group_all | Files::perms::others_all;
            Files::permissions(m_path, old.permissions() & rights, none);
        }
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
        Files::rename(m_path, target);
        m_isInPlace = true;
    }

private:
    const std::string m_path;
    const UnfinishedFile m_unfinished;
    std::FILE* m_file;
    bool m_isInPlace = false;
};

FileFailure unwritable(const std::string& path, const std::system_error& failure) {
    return FileFailure(quotedPath(path) + " can’t be written: " + failure.code().message() + ".");
}

// `path` is what the user calls the target.
void refuseOtherThanFiles(const std::string& path, const Files::path& target) {
    const Files::file_status status = Files::status(target);
    if (Files::is_directory(status)) {
        throw FileFailure(quotedPath(path) + " is a folder, not a file.");
    }
    if (!Files::exists(status)) {
        return;
    }
    if (!Files::is_regular_file(status)) {
        throw FileFailure(quotedPath(path) + " is not a file.");
    }
    // Replacing a file takes no right to write to it; who took that right away means it to stay.
    std::FILE* const file = std::fopen(target.c_str(), "r+b");
    require(file != nullptr);
    std::fclose(file);
}

Files::path soundTarget(const std::string& path) {
    Files::path target = linkedFile(path);
    refuseOtherThanFiles(path, target);
    const Files::path folder = folderOf(target);
    if (!Files::exists(folder)) {
        throw FileFailure("The folder " + quotedPath(folder.string()) + " doesn’t exist.");
    }
    return target;
}

}  // namespace

void refuseUnwritable(const std::string& path) {
    try {
        TemporaryFile{soundTarget(path)};
    } catch (const std::system_error& failure) {
        throw unwritable(path, failure);
    }
}

void saveFile(const std::string& path, std::string_view bytes) {
    try {
        const Files::path target = soundTarget(path);
        TemporaryFile file(target);
        file.write(bytes);
        file.replace(target);
    } catch (const std::system_error& failure) {
        throw unwritable(path, failure);
    }
}

}  // namespace corvale::Cli
