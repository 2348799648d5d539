#pragma once
#include <memory>
#include <string>
#include <vector>

namespace platform {

enum class EntryKind { None, File, Folder };

// A text file that is read line by line. Failures are thrown as CFailure.
class ILineReader {
public:
    virtual ~ILineReader() = default;
    // Appends the next line, without its end (CR LF, LF or a lone CR), to `lines`. Returns false, and appends nothing,
    // behind the last line; a line end at the end of the file begins no further line. A file that grows while it is read
    // yields the lines that are there.
    virtual bool AppendLine(std::string& lines) = 0;
    // All appended lines, joined with "\r\n", as text: only the whole of a file tells its encoding.
    virtual std::string Text(std::string lines) const = 0;
};

// Folders and files. Paths are UTF-8 and use this platform's separator. Failures are thrown as CFailure (53, 70, 75, 76
// ...).
class IFiles {
public:
    virtual ~IFiles() = default;
    virtual char Separator() const = 0;
    // The system's own folders, as the system spells them (with or without a separator at the end), at most `limit`
    // bytes. "Windows folder" is the folder that holds the character folder.
    virtual std::string WindowsFolder(std::size_t limit) const = 0;
    virtual std::string SystemFolder(std::size_t limit) const = 0;
    virtual std::string TemporaryFolder(std::size_t limit) const = 0;
    virtual std::string ProgramFolder() const = 0;
    virtual std::string CurrentFolder() const = 0;

    // What a path names; None also when it cannot be looked at.
    virtual EntryKind Kind(const std::string& path) const = 0;
    // Creates one folder; its parent must exist.
    virtual void MakeFolder(const std::string& path) = 0;
    // Names (without folder) of the entries that match a path with wildcards ("*" and "?", case does not matter),
    // hidden and system entries included, in the system's order; may hold "." and "..". Empty when nothing matches or
    // the folder cannot be read.
    virtual std::vector<std::string> Match(const std::string& pattern) const = 0;
    // The whole of a text file as text: see "Text" in docs/architecture.md for encodings and line ends.
    virtual std::string ReadText(const std::string& path) const = 0;
    // Deletes one file (53 when there is none, 75 for a folder).
    virtual void Delete(const std::string& path) = 0;
    // Gives a file or folder another name or place on the same disk; never replaces anything (58).
    virtual void Rename(const std::string& from, const std::string& to) = 0;
    // Opens a text file for reading line by line; closed when the reader is released.
    virtual std::unique_ptr<ILineReader> OpenLines(const std::string& path) const = 0;
    // Creates a file, or gives it new content: the text as it stands, followed by "\r\n". The file has its former content,
    // if any, until the new one is complete, and keeps it when this fails; 70 or 75 for a file that may not be written.
    virtual void WriteLine(const std::string& path, const std::string& text) = 0;
};

}
