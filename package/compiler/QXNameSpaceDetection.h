// Finds the full name of the first class of a source file: resources are named after it. Sources are read line by
// line, without regard to comments, strings and conditional regions. Each gives whether there is a class; Name is
// written in either case. They throw std::runtime_error for a file that cannot be read.
#pragma once

#include <string>

/// A class below the first namespace; without a class the namespace alone.
[[nodiscard]] bool DetectCSharpNameSpace(const std::string& FileName, std::string& Name);
/// The root stands before what is found, if there is one.
[[nodiscard]] bool DetectVBNameSpace(const std::string& FileName, const std::string& Root, std::string& Name);
/// The root and a full stop always stand before what is found.
[[nodiscard]] bool DetectJSharpNameSpace(const std::string& FileName, const std::string& Root, std::string& Name);
