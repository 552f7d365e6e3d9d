using System.IO;
using System.Reflection;
using Acme.Core.Stock;
using NUnit.Framework;

namespace Acme.Tests
{
    [TestFixture]
    public class ReleaseTest
    {
        private readonly Assembly about = Assembly.Load("Acme.About");

        [Test]
        public void AssembliesShareTheirKey()
        {
            byte[] token = typeof(Warehouse).Assembly.GetName().GetPublicKeyToken();
            Assert.AreEqual(8, token.Length);
            Assert.AreEqual(token, about.GetName().GetPublicKeyToken());
        }

        [Test]
        public void TellsWhatItIs()
        {
            using (StreamReader text = new StreamReader(about.GetManifestResourceStream("About.txt")))
                Assert.That(text.ReadToEnd(), Is.StringContaining("Acme"));
        }
    }
}
