// Drives the pages of an object by lines of JSON: a request from each line of a stream, an answer to each line of
// another.
#pragma once

#include "host/QXServices.h"
#include "runtime/forms/PageSet.h"

#include <iosfwd>

class TQXRuntime;

/// The object whose pages are driven.
struct TDrivenObject
{
    TQXPersistent& Object; ///< of Action or Options
    TCustomQXAction* Action;
    TQXOptionsObject* Options;
    std::span<const TQXPageClass> Pages;
    int HelpTopic; ///< of pages that have none of their own
};

/// Answers requests until there are no more. The dialogs of the pages are answered by what was queued for them.
void DrivePages(TQXRuntime& Runtime, const TDrivenObject& Driven, std::istream& Requests, std::ostream& Answers);

/// The same for programs that load the library when they need it.
extern "C" void QXDrivePages(TQXRuntime& Runtime, const TDrivenObject& Driven, std::istream& Requests,
                             std::ostream& Answers);
