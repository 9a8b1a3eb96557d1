// Text files for output in Windows-1252 with CR LF, and the table of those that are open: a file
// that is open can not be opened or copied onto again (error 55), whatever its spelling.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Descriptor;
class TextFiles;

// One open output file. Lines are collected in a buffer and written when it is full, on Close, and
// at the latest when the object goes away (also on the way out of an error).
class TextFile {
  public:
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    // Appends one line (UTF-8, without line end). A failed write is error 61 or 57, a file that was
    // closed before error 52.
    void WriteLine(std::string_view line);

    // Appends lines that EncodeLine has made, as they are: for a block that is written often.
    void WriteEncoded(std::string_view lines);

    // Has all that was written so far put on disk: a full one shows now rather than at Close.
    void Sync();

    // Has all of it put on disk and takes the file from the table. A second call does nothing.
    void Close();

    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }

  private:
    friend class TextFiles;
    TextFile(TextFiles& table, std::filesystem::path path, int descriptor);
    void RequireOpen() const;
    void Flush();                       // writes what is collected
    int WriteCollected();               // an errno value, 0 for none
    int Write(std::string_view& rest);  // likewise; takes what is written off its front
    int Leave();                        // closes and leaves the table; likewise

    TextFiles& table_;
    std::filesystem::path path_;
    int descriptor_;
    std::string buffer_;
    std::size_t sinceSync_ = 0;  // bytes written since the disk was last set to work
};

[[nodiscard]] std::string EncodeLine(std::string_view line);  // code page and CR LF

// The table of open output files. It outlives them. A name that is a link's, a FIFO's, a device's
// or a folder's is error 75, and what is there stays as it is.
class TextFiles {
  public:
    TextFiles() = default;
    TextFiles(const TextFiles&) = delete;
    TextFiles& operator=(const TextFiles&) = delete;

    // Creates the file; one of that name goes. Errors 55, 70, 75, 76, 61.
    [[nodiscard]] std::unique_ptr<TextFile> OpenForOutput(std::string_view name);

    // Creates the file where there is none; what is written follows what it holds. Errors likewise.
    [[nodiscard]] std::unique_ptr<TextFile> OpenForAppend(std::string_view name);

    // Copies a file to a new one; a file of that name goes. The copy is on disk afterwards. Error
    // 53 where there is no `from`, 55 where either is open, 70 where both are the same file.
    void Copy(std::string_view from, std::string_view to);

  private:
    friend class TextFile;
    using OpenFile = int(const std::filesystem::path&, Descriptor&);  // an errno value, 0 for none
    [[nodiscard]] std::unique_ptr<TextFile> Open(std::string_view name, OpenFile* open);
    void RequireNotOpen(const std::filesystem::path& path) const;

    std::vector<std::filesystem::path> open_;  // canonical paths
};

}  // namespace platform
