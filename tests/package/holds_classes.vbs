' A program that uses the component for as long as the file given as its argument is there.
Option Explicit
Dim files, designer
Set files = CreateObject("Scripting.FileSystemObject")
Set designer = CreateObject("Tessel.Quillon")
files.CreateTextFile(WScript.Arguments(0) & ".ready").Close
Do While files.FileExists(WScript.Arguments(0))
Loop
WScript.Quit 42
