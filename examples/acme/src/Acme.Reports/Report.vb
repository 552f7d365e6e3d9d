Namespace Stock
    Public Class Report
        Public Function Title() As String
            Return "Acme's stock"
        End Function
    End Class
End Namespace
