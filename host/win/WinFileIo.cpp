// Whole-file reads and atomic replacement of files.
#include "host/win/WinFileIo.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "host/win/WinText.h"

namespace svwin {

namespace {

// Closes the descriptor on every path out.
struct Fd {
    int fd;
    explicit Fd(int f) : fd(f) {}
    ~Fd()
    {
        if (fd >= 0) ::close(fd);
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
};

bool WriteAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

std::string ParentOf(const std::string& native)
{
    const std::size_t slash = native.find_last_of('/');
    if (slash == std::string::npos) return {};
    if (slash == 0) return "/";
    return native.substr(0, slash);
}

} // namespace

bool ReadFileBytes(const std::string& native, std::string& bytes)
{
    bytes.clear();
    Fd f(::open(native.c_str(), O_RDONLY | O_CLOEXEC));
    if (f.fd < 0) return false;
    struct stat st;
    if (::fstat(f.fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        errno = EISDIR;
        return false;
    }
    char buf[65536];
    for (;;) {
        const ssize_t n = ::read(f.fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (n == 0) return true;
        bytes.append(buf, static_cast<std::size_t>(n));
    }
}

bool ReadTextFile(const std::string& native, std::wstring& text)
{
    std::string bytes;
    if (!ReadFileBytes(native, bytes)) {
        text.clear();
        return false;
    }
    text = DecodeFileText(bytes);
    return true;
}

bool CreateFolders(const std::string& native)
{
    if (native.empty()) return true;
    struct stat st;
    if (::stat(native.c_str(), &st) == 0) {
        if (S_ISDIR(st.st_mode)) return true;
        errno = ENOTDIR;
        return false;
    }
    std::string trimmed = native;
    while (trimmed.size() > 1 && trimmed.back() == '/') trimmed.pop_back();
    const std::string parent = ParentOf(trimmed);
    if (!parent.empty() && parent != trimmed && !CreateFolders(parent)) return false;
    if (::mkdir(trimmed.c_str(), 0777) == 0 || errno == EEXIST) return true;
    return false;
}

bool WriteFileAtomic(const std::string& native, std::string_view bytes)
{
    std::string target = native;
    struct stat st;
    bool bExists = ::lstat(target.c_str(), &st) == 0;
    if (bExists && S_ISLNK(st.st_mode)) {
        if (char* real = ::realpath(target.c_str(), nullptr)) {
            target = real;
            std::free(real);
        }
        bExists = ::stat(target.c_str(), &st) == 0;
    }
    if (bExists && S_ISDIR(st.st_mode)) {
        errno = EISDIR;
        return false;
    }
    const std::string parent = ParentOf(target);
    if (!parent.empty() && !CreateFolders(parent)) return false;

    static std::atomic<unsigned> s_counter{0};
    std::string temp;
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        temp = target + ".tmp" + std::to_string(::getpid()) + "-" + std::to_string(s_counter++);
        fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) return false;
    }
    if (fd < 0) return false;

    bool bOk = WriteAll(fd, bytes);
    if (bOk && bExists) bOk = ::fchmod(fd, st.st_mode & 07777) == 0;
    const int saved = errno;
    if (::close(fd) != 0 && bOk) bOk = false;
    else errno = saved;
    if (bOk && ::rename(temp.c_str(), target.c_str()) == 0) return true;
    const int err = errno;
    ::unlink(temp.c_str());
    errno = err;
    return false;
}

} // namespace svwin
