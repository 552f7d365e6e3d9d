#include "package/pages/QXSNExtractKeyFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetSNAction.h"

TSNExtractKeyFrame::TSNExtractKeyFrame()
{
    Bind({&rbInputKeyFile, &rbInputAssembly, &rbInputContainer}, &TSNExtractPublicKey::ExtractFromType);
    Bind(txtInputKeyfile, &TSNExtractPublicKey::FromKeyFile);
    Bind(txtAssembly, &TSNExtractPublicKey::FromAssembly);
    Bind(txtContainer, &TSNExtractPublicKey::FromContainer);
    Bind({&rbOutputKeyfile, &rbOutputCSV, &rbOutputClipboard}, &TSNExtractPublicKey::ExtractToType);
    Bind(txtOutputKeyFile, &TSNExtractPublicKey::ToKeyFile);
    Bind(txtCSV, &TSNExtractPublicKey::ToCSV);
    Browse(txtInputKeyfile, FileFilters::KeyFile);
    Browse(txtAssembly, FileFilters::Assembly);
    Browse(txtContainer);
    Browse(txtOutputKeyFile, FileFilters::KeyFile);
    Browse(txtCSV, FileFilters::CsvFiles);
}
