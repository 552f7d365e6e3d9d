#pragma once

#include <memory>
#include <string>
#include <vector>

/// Reads the files of a list ahead, in a thread of its own, while those before them are worked on: for whoever rewrites
/// many files one after the other. It only saves time: what cannot be read ahead is read when it is asked for.
class TReadAhead
{
public:
    /// The list must last as long as the object. A short one is not worth a thread.
    explicit TReadAhead(const std::vector<std::string>& Paths);
    ~TReadAhead();
    TReadAhead(const TReadAhead&) = delete;
    TReadAhead& operator=(const TReadAhead&) = delete;

private:
    friend class TFileRewrite;
    struct TImpl;
    std::unique_ptr<TImpl> FImpl; ///< null without a thread
};
