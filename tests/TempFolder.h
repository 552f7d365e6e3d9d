// Folders for tests.
#pragma once

#include "gtest/gtest.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

/// A new folder that goes with everything in it. Names of files are relative to it.
class TTempFolder
{
public:
    explicit TTempFolder(const std::filesystem::path& Parent = std::filesystem::temp_directory_path())
        : FPath(std::filesystem::canonical(Parent) / ("quexley-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(FPath);
    }
    ~TTempFolder()
    {
        std::error_code Ignored;
        std::filesystem::remove_all(FPath, Ignored);
    }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return FPath.native(); }
    [[nodiscard]] std::string operator/(const std::string& Name) const { return (FPath / Name).string(); }
    /// Writes a file, with its folders; gives its full path.
    std::string Write(const std::string& Name, std::string_view Bytes = "") const
    {
        const std::filesystem::path File = FPath / Name;
        std::filesystem::create_directories(File.parent_path());
        std::ofstream(File, std::ios::binary) << Bytes;
        return File.string();
    }
    [[nodiscard]] std::string Read(const std::string& Name) const
    {
        std::ifstream Stream(FPath / Name, std::ios::binary);
        EXPECT_TRUE(Stream) << Name << " cannot be read";
        return (std::ostringstream() << Stream.rdbuf()).str();
    }
    [[nodiscard]] bool Exists(const std::string& Name) const { return std::filesystem::exists(FPath / Name); }

private:
    std::filesystem::path FPath;
};

/// One that is the current folder as long as the object lives.
class TWorkFolder : public TTempFolder
{
public:
    TWorkFolder() : FOld(std::filesystem::current_path()) { std::filesystem::current_path(Path()); }
    ~TWorkFolder() { std::filesystem::current_path(FOld); }

private:
    std::filesystem::path FOld;
};
