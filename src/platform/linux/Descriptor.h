#pragma once
#include <cerrno>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace platform::linuxdesktop {

// Makes a system call, again and again while a signal interrupts it: network file systems and those of other programs let
// that happen to any call.
template <class Call> auto Uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

// An open file, closed with this object.
class CDescriptor {
public:
    explicit CDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~CDescriptor() { Close(); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;
    bool Open() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }
    bool Close()  // Network file systems tell only here that a write failed.
    {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

// False, with `errno` set, when not every byte could be written.
inline bool WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = Uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}
