#pragma once

#include "host/QXPages.h"

/// The list of files, folders and masks that the pages of the actions on files begin with.
struct TQXFileListGroup
{
    explicit TQXFileListGroup(TSurface& Page);
    TMemo memFiles;
    TEdit txtFile;
};

/// Gives the field a button that asks for a folder.
void BrowseForFolder(TEdit& Edit, const char* Prompt);
