#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TTLBImportFrame final : public TDotNetToolBaseFrame
{
public:
    TTLBImportFrame();
    [[nodiscard]] std::string PageName() const override { return "Files && Options"; }

    TEdit txtAssembly{*this, "txtAssembly", "Type Library Name"};
    TEdit txtResourceID{*this, "txtResourceID", "Resource ID"};
    TEdit txtOutput{*this, "txtOutput", "Assembly Output File"};
    TEdit edtNamespace{*this, "edtNamespace", "Namespace"};
    TEdit edtVersionNum{*this, "edtVersionNum", "Version Number of Assembly"};
    TCheckBox chkUnsafe{*this, "chkUnsafe", "Produce interfaces without runtime security checks (/unsafe)"};
    TCheckBox chkPrimary{*this, "chkPrimary", "Produce a primary interop assembly (/primary)"};
    TCheckBox chkSysArray{*this, "chkSysArray", "Import SAFEARRAY as System.Array (/sysarray)"};
    TCheckBox chkTransform{*this, "chkTransform",
                           "Apply the [out, retval] parameter transformation to methods of disp only interfaces"};
};
