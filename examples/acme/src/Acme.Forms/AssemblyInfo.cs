using System.Reflection;

[assembly: AssemblyTitle("AcmeForms")]
[assembly: AssemblyVersion("1.4.0.0")]
