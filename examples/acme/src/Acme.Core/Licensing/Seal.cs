using System;
using System.ComponentModel;

namespace Acme.Core.Licensing
{
    /// <summary>Grants every license, as the demonstration of a licensed component.</summary>
    public class SealLicenseProvider : LicenseProvider
    {
        private class SealLicense : License
        {
            public override string LicenseKey
            {
                get { return "ACME-1949"; }
            }

            public override void Dispose()
            {
            }
        }

        /// <summary>Keeps the key in the context when the license compiler asks.</summary>
        public override License GetLicense(LicenseContext context, Type type, object instance, bool allowExceptions)
        {
            License license = new SealLicense();
            if (context.UsageMode == LicenseUsageMode.Designtime)
                context.SetSavedLicenseKey(type, license.LicenseKey);
            return license;
        }
    }

    /// <summary>A licensed component.</summary>
    [LicenseProvider(typeof(SealLicenseProvider))]
    public class Seal : Component
    {
    }
}
