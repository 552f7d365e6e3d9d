#pragma once

#include <filesystem>
#include <random>
#include <string>

/// A new folder that goes with everything in it.
class TTempFolder
{
public:
    TTempFolder()
        : FPath(std::filesystem::temp_directory_path() / ("quexley-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(FPath);
        FPath = std::filesystem::canonical(FPath);
    }
    ~TTempFolder() { std::filesystem::remove_all(FPath); }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;

    [[nodiscard]] std::string Path() const { return FPath.string(); }
    [[nodiscard]] std::string operator/(const std::string& Name) const { return (FPath / Name).string(); }

private:
    std::filesystem::path FPath;
};
