#include "package/pages/QXSNGenerateKeyPairFrame.h"

#include "host/QXForms.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXDotNetSNAction.h"

TSNGenerateKeyPairFrame::TSNGenerateKeyPairFrame()
{
    Bind(txtFile, &TSNGenerateKeyPair::OutputFile);
    BrowseByDialog(txtFile, {.Kind = TQXDialogKind::Save, .Filter = FileFilters::KeyFile, .File = "keypair.snk"});
}

bool TSNGenerateKeyPairFrame::Validate()
{
    if (!txtFile.Text.empty())
        return true;
    QXShowError("Output file cannot be blank");
    return false;
}
