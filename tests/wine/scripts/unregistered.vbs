' After regsvr32 /u the ProgIDs no longer resolve.
Dim ui
On Error Resume Next
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
CheckError "VarDeskUI is no longer creatable", 429, ""
Set ui = CreateObject("VarDeskGUI.SelectionHandler")
CheckError "SelectionHandler is no longer creatable", 429, ""
On Error Goto 0
Finish "unregistered"
