// The readers of the formats of project files.
#pragma once

#include "apps/import/ProjectFile.h"
#include "platform/Xml.h"

/// Each fills a project, which has its names already, from the root element. Throws EProjectError.
void ReadVisualStudioProject(const TXmlElement& Root, TFoundProject& Project);
void ReadBuilderProject(const TXmlElement& Root, TFoundProject& Project);
void ReadMSBuildProject(const TXmlElement& Root, TFoundProject& Project);
