using System.Reflection;

[assembly: AssemblyTitle("Acme.Tests")]
[assembly: AssemblyVersion("1.5.0.0")]
