#pragma once
#include "platform/Clock.h"
#include "platform/kept/KeptFolder.h"
#include <functional>
#include <string>
#include <string_view>

// Names, order and number of the kept texts. A kept text is called "2026-11-22 05-25-03 letter.txt", the copy of a text that
// is being edited the same with "unsaved " before it.
namespace platform::kept {

inline constexpr std::size_t MostFiles = 50;
inline constexpr std::uint64_t MostBytes = 64 << 20;

class CKeptTextStore {
public:
    // The folder is borrowed.
    CKeptTextStore(IKeptFolder& folder, std::function<LocalTime()> now) : m_folder(folder), m_now(std::move(now)) {}

    // Keeps bytes under the name of their file, then removes what is too much. The same bytes are kept once. False when they
    // could not be kept or there are none.
    bool Keep(std::string_view file, const std::string& bytes);

    // The copy of a text that is being edited; a new one replaces the former one when it is complete.
    bool Copy(std::string_view file, const std::string& bytes);
    void RemoveCopy();

    // Makes kept texts of the copies that other processes left behind. The path of the newest one, "" when there is none.
    std::string TakeLeftBehind();

    // What stands for a file in a name: without folder, without what a disk may not like, not too long.
    static std::string PlainName(std::string_view file);

private:
    std::string FreeName(const std::string& stamp, const std::string& plainName) const;
    std::string Take(const std::string& copy);
    void RemoveOthersWith(const std::string& bytes, const std::string& name);
    void Prune(const std::string& newest);
    IKeptFolder& m_folder;
    std::function<LocalTime()> m_now;
    std::string m_copy;  // The name of the present copy.
};

}
