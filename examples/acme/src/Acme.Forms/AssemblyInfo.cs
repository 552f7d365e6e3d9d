using System.Reflection;

[assembly: AssemblyTitle("AcmeForms")]
[assembly: AssemblyVersion("1.5.0.0")]
