#include "package/sdktools/QXDotNetSNAction.h"

#include "package/plugin/QXActionHelpers.h"

namespace
{
struct TExtraction
{
    TSNExtractFromType From;
    TSNExtractToType To;
    std::string_view Switch;
};
constexpr TExtraction Extractions[] = {
    {extractFromAssembly, extractToKeyFile, "-e"},   {extractFromKeyFile, extractToCSV, "-o"},
    {extractFromKeyFile, extractToClipboard, "-o"},  {extractFromKeyFile, extractToKeyFile, "-p"},
    {extractFromContainer, extractToKeyFile, "-pc"},
};

/// Empty for a pair that the tool does not know.
std::string_view ExtractionSwitch(TSNExtractFromType From, TSNExtractToType To)
{
    for (const TExtraction& Extraction : Extractions)
        if (Extraction.From == From && Extraction.To == To)
            return Extraction.Switch;
    return {};
}
} // namespace

TSNGenerateKeyPair::TSNGenerateKeyPair()
{
    Publish("OutputFile", OutputFile, "Key file to create").File().Required("%ProjectDir%/Acme.snk");
}

bool TSNGenerateKeyPair::GetCommandLine(ICommandLineBuilder& Builder)
{
    return AddExpanded(*this, Builder, "-k", "Output File", OutputFile);
}

bool TSNGenerateKeyPair::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{OutputFile, "Output file", "Output filename has not been set"}});
}

TSNVerifyAssembly::TSNVerifyAssembly()
{
    Publish("Assembly", Assembly, "Assembly to verify").File().Required("%ProjectDir%/bin/Acme.Core.dll");
    Publish("Force", Force, "Verify even if verification is switched off for the assembly");
    Publish("FailIfValid", FailIfValid, "Fail when the assembly is valid, and succeed when it is not");
}

bool TSNVerifyAssembly::GetCommandLine(ICommandLineBuilder& Builder)
{
    return AddExpanded(*this, Builder, Force ? "-vf" : "-v", "Assembly", Assembly);
}

bool TSNVerifyAssembly::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{Assembly, "Assembly", "Assembly filename has not been set"}});
}

TSNInstallKeyPair::TSNInstallKeyPair()
{
    Publish("KeyFile", KeyFile, "Key pair file").File().Required("%ProjectDir%/Acme.snk");
    Publish("ContainerFile", ContainerFile, "Name of the key container").Expression();
}

bool TSNInstallKeyPair::GetCommandLine(ICommandLineBuilder& Builder)
{
    return AddExpanded(*this, Builder, "-i", "Key File", KeyFile) &&
           AddExpanded(*this, Builder, "", "Container File", ContainerFile);
}

bool TSNInstallKeyPair::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{KeyFile, "Key file", "Key filename has not been set"}});
}

TSNExtractPublicKey::TSNExtractPublicKey()
{
    Publish("ExtractFromType", ExtractFromType, "Kind of source");
    Publish("ExtractToType", ExtractToType, "Kind of destination");
    Publish("FromKeyFile", FromKeyFile, "Key pair file from which the key comes")
        .File()
        .Required("%ProjectDir%/Acme.snk");
    Publish("FromAssembly", FromAssembly, "Assembly from which the key comes").File();
    Publish("FromContainer", FromContainer, "Key container from which the key comes").Expression();
    Publish("ToKeyFile", ToKeyFile, "Public key file to create").File().Required("%ProjectDir%/Acme.pub");
    Publish("ToCSV", ToCSV, "Text file to create that holds the key's bytes, parted by commas").File();
}

bool TSNExtractPublicKey::GetCommandLine(ICommandLineBuilder& Builder)
{
    const std::string_view Switch = ExtractionSwitch(ExtractFromType, ExtractToType);
    if (Switch.empty())
    {
        SendMessage("The options for the infile and outfile are not valid");
        return false;
    }
    return AddExpanded(*this, Builder, Switch, "Extract From", Source()) && AddDestination(Builder);
}

const std::string& TSNExtractPublicKey::Source() const
{
    if (ExtractFromType == extractFromContainer)
        return FromContainer;
    return ExtractFromType == extractFromAssembly ? FromAssembly : FromKeyFile;
}

bool TSNExtractPublicKey::AddDestination(ICommandLineBuilder& Builder) const
{
    if (ExtractToType == extractToKeyFile)
        return AddExpanded(*this, Builder, "", "Extract To", ToKeyFile);
    return ExtractToType == extractToClipboard || AddOptional(*this, Builder, "", "Extract To", ToCSV);
}

void TSNExtractPublicKey::OnFailure(int ExitCode)
{
    TSNBaseAction::OnFailure(ExitCode);
    ExplainMono(ExtractToType == extractToClipboard, "Mono's sn.exe does not write to the clipboard");
}

bool TSNExtractPublicKey::Validate(IQXActionValidationError& Errors)
{
    return Require(
        Errors,
        {{ExtractFromType != extractFromKeyFile || !FromKeyFile.empty(), "Key File", "Key file has not been set"},
         {ExtractFromType != extractFromAssembly || !FromAssembly.empty(), "Assembly",
          "Assembly filename has not been set"},
         {ExtractFromType != extractFromContainer || !FromContainer.empty(), "Container", "Container has not been set"},
         {ExtractToType != extractToKeyFile || !ToKeyFile.empty(), "Key File",
          "Extract to key filename has not been set"},
         {ExtractToType != extractToCSV || !ToCSV.empty(), "CSV File", "Extract to CSV filename has not been set"}});
}

TSNResignAssembly::TSNResignAssembly()
{
    Publish("Assembly", Assembly, "Assembly to sign again").File().Required("%ProjectDir%/bin/Acme.Core.dll");
    Publish("UseKeyFile", UseKeyFile, "Sign with the key file and not with the key container");
    Publish("KeyFile", KeyFile, "Key pair file to sign with").File().Required("%ProjectDir%/Acme.snk");
    Publish("Container", Container, "Key container to sign with").Expression();
}

bool TSNResignAssembly::GetCommandLine(ICommandLineBuilder& Builder)
{
    std::string Key;
    std::string File;
    const TQXExpansion KeyExpansion =
        UseKeyFile ? TQXExpansion{"Key File", KeyFile, Key} : TQXExpansion{"Container", Container, Key};
    if (!ExpandRequired(*this, {KeyExpansion, {"Assembly", Assembly, File}}))
        return false;
    Builder.AddArgument(UseKeyFile ? "-R" : "-Rc", File);
    Builder.AddArgument("", Key);
    return true;
}

bool TSNResignAssembly::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{Assembly, "Assembly", "Assembly filename has not been set"},
                            {!UseKeyFile || !KeyFile.empty(), "Key File", "Key file has not been set"},
                            {UseKeyFile || !Container.empty(), "Container", "Container has not been set"}});
}

bool TSNGenericSN::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{StartDir, "Starting directory", "Starting directory has not been set"}});
}
