' A display model written as script classes: the objects a script host hands
' to the component. Lists are 1-based; a custom data source or variable is a
' wrapper that also answers GetParams (and GetDsvAccess).

Class ObjList
  Private items  ' index -> object
  Private Sub Class_Initialize : Set items = CreateObject("Scripting.Dictionary") : End Sub
  Public Function Count() : Count = items.Count : End Function
  Public Function Item(i) : Set Item = items.Item(i) : End Function
  Public Sub Add(obj) : items.Add items.Count + 1, obj : End Sub
  Public Function IndexOf(obj)
    Dim i
    IndexOf = 0
    For i = 1 To items.Count
      If items.Item(i) Is obj Then IndexOf = i
    Next
  End Function
  ' Stores obj at index k (the engine's Dictionary takes no Set on Item).
  Private Sub Put(k, obj)
    If items.Exists(k) Then items.Remove k
    items.Add k, obj
  End Sub
  Public Sub Remove(i)
    Dim k, n
    n = items.Count
    For k = i To n - 1
      Put k, items.Item(k + 1)
    Next
    items.Remove n
  End Sub
  Public Function Swap(i, j)
    Dim t
    Swap = False
    If i < 1 Or j < 1 Or i > items.Count Or j > items.Count Then Exit Function
    Set t = items.Item(i)
    Put i, items.Item(j)
    Put j, t
    Swap = True
  End Function
End Class

Class TestParam
  Public ParamType
  Public ParamValue
  Public Function GetParamType() : GetParamType = ParamType : End Function
  Public Function GetParamValue() : GetParamValue = ParamValue : End Function
  Public Sub SetParamValue(typeCode, value)
    ParamType = typeCode
    ParamValue = value
  End Sub
End Class

Class TestParamList
  Public Items
  Private Sub Class_Initialize : Set Items = New ObjList : End Sub
  Public Function ParamCount() : ParamCount = Items.Count() : End Function
  Public Function ParamItem(i) : Set ParamItem = Items.Item(i) : End Function
  Public Function AddParam()
    Dim p
    Set p = New TestParam
    p.ParamType = 9
    p.ParamValue = ""
    Items.Add p
    Set AddParam = p
  End Function
End Class

Function NewParams(values)
  Dim list, v, p
  Set list = New TestParamList
  For Each v In values
    Set p = list.AddParam()
    If VarType(v) = vbString Then
      p.SetParamValue 9, v
    Else
      p.SetParamValue 5, v
    End If
  Next
  Set NewParams = list
End Function

Class TestDsv
  Public Name
  Public DsvType
  Public Rows
  Public Cols
  Public Scope
  Public Value
  Public UseCount
  Public Parent    ' the data source object the host sees (a wrapper when custom)
  Public Owner     ' the variable object the host sees (a wrapper when custom)
  Public Function GetDsvName() : GetDsvName = Name : End Function
  Public Sub SetDsvName(v) : Name = v : End Sub
  Public Function GetDsvType() : GetDsvType = DsvType : End Function
  Public Sub SetDsvType(v) : DsvType = v : End Sub
  ' The shape follows the dimensions, as the toolkit keeps it.
  Public Function GetDsvShape()
    If Rows >= 2 Then
      GetDsvShape = 3
    ElseIf Cols >= 2 Then
      GetDsvShape = 2
    Else
      GetDsvShape = 1
    End If
  End Function
  Public Function GetDsvRows() : GetDsvRows = Rows : End Function
  Public Sub SetDsvRows(v) : Rows = v : End Sub
  Public Function GetDsvCols() : GetDsvCols = Cols : End Function
  Public Sub SetDsvCols(v) : Cols = v : End Sub
  Public Function GetDsvScope() : GetDsvScope = Scope : End Function
  Public Sub SetDsvScope(v) : Scope = v : End Sub
  Public Function GetDsvValue() : GetDsvValue = Value : End Function
  Public Sub SetDsvValue(v) : Value = v : End Sub
  Public Function GetDsvParent() : Set GetDsvParent = Parent : End Function
  Public Function GetDsvUseCount() : GetDsvUseCount = UseCount : End Function
  Public Function RemoveDsv()
    Dim list
    Set list = Parent.GetDsVars().Items
    list.Remove list.IndexOf(Owner)
    RemoveDsv = True
  End Function
  Public Function DsvMoveUp()
    Dim list, i
    Set list = Parent.GetDsVars().Items
    i = list.IndexOf(Owner)
    DsvMoveUp = list.Swap(i, i - 1)
  End Function
  Public Function DsvMoveDown()
    Dim list, i
    Set list = Parent.GetDsVars().Items
    i = list.IndexOf(Owner)
    DsvMoveDown = list.Swap(i, i + 1)
  End Function
End Class

' A variable of a custom data source: every variable operation plus its params.
Class TestCustomDsv
  Public Inner
  Public Params
  Public Access
  Public Function GetDsvName() : GetDsvName = Inner.GetDsvName() : End Function
  Public Sub SetDsvName(v) : Inner.SetDsvName v : End Sub
  Public Function GetDsvType() : GetDsvType = Inner.GetDsvType() : End Function
  Public Sub SetDsvType(v) : Inner.SetDsvType v : End Sub
  Public Function GetDsvShape() : GetDsvShape = Inner.GetDsvShape() : End Function
  Public Function GetDsvRows() : GetDsvRows = Inner.GetDsvRows() : End Function
  Public Sub SetDsvRows(v) : Inner.SetDsvRows v : End Sub
  Public Function GetDsvCols() : GetDsvCols = Inner.GetDsvCols() : End Function
  Public Sub SetDsvCols(v) : Inner.SetDsvCols v : End Sub
  Public Function GetDsvScope() : GetDsvScope = Inner.GetDsvScope() : End Function
  Public Sub SetDsvScope(v) : Inner.SetDsvScope v : End Sub
  Public Function GetDsvValue() : GetDsvValue = Inner.GetDsvValue() : End Function
  Public Sub SetDsvValue(v) : Inner.SetDsvValue v : End Sub
  Public Function GetDsvParent() : Set GetDsvParent = Inner.GetDsvParent() : End Function
  Public Function GetDsvUseCount() : GetDsvUseCount = Inner.GetDsvUseCount() : End Function
  Public Function RemoveDsv() : RemoveDsv = Inner.RemoveDsv() : End Function
  Public Function DsvMoveUp() : DsvMoveUp = Inner.DsvMoveUp() : End Function
  Public Function DsvMoveDown() : DsvMoveDown = Inner.DsvMoveDown() : End Function
  Public Function GetParams() : Set GetParams = Params : End Function
  Public Function GetDsvAccess() : GetDsvAccess = Access : End Function
End Class

Class TestDsvList
  Public Items
  Public Parent
  Private Sub Class_Initialize : Set Items = New ObjList : End Sub
  Public Function DsvCount() : DsvCount = Items.Count() : End Function
  Public Function DsvItem(i) : Set DsvItem = Items.Item(i) : End Function
  Public Function AddDsv() : Set AddDsv = NewDsv(Parent, "Var" & (Items.Count() + 1), 8, 2.5) : End Function
End Class

Class TestDs
  Public Name
  Public DsType
  Public Ascii
  Public Vars
  Public List
  Public Owner       ' the data source object the host sees
  Public Function GetDsName() : GetDsName = Name : End Function
  Public Sub SetDsName(v) : Name = v : End Sub
  Public Function GetDsType() : GetDsType = DsType : End Function
  Public Function GetDsVars() : Set GetDsVars = Vars : End Function
  Public Function RemoveDs()
    List.Items.Remove List.Items.IndexOf(Owner)
    RemoveDs = True
  End Function
  Public Function DsMoveUp()
    Dim i
    i = List.Items.IndexOf(Owner)
    DsMoveUp = List.Items.Swap(i, i - 1)
  End Function
  Public Function DsMoveDown()
    Dim i
    i = List.Items.IndexOf(Owner)
    DsMoveDown = List.Items.Swap(i, i + 1)
  End Function
  Public Function GetDsAscii() : GetDsAscii = Ascii : End Function
  Public Sub SetDsAscii(v) : Ascii = v : End Sub
End Class

Class TestCustomDs
  Public Inner
  Public Params
  Public Function GetDsName() : GetDsName = Inner.GetDsName() : End Function
  Public Sub SetDsName(v) : Inner.SetDsName v : End Sub
  Public Function GetDsType() : GetDsType = Inner.GetDsType() : End Function
  Public Function GetDsVars() : Set GetDsVars = Inner.GetDsVars() : End Function
  Public Function RemoveDs() : RemoveDs = Inner.RemoveDs() : End Function
  Public Function DsMoveUp() : DsMoveUp = Inner.DsMoveUp() : End Function
  Public Function DsMoveDown() : DsMoveDown = Inner.DsMoveDown() : End Function
  Public Function GetDsAscii() : GetDsAscii = Inner.GetDsAscii() : End Function
  Public Sub SetDsAscii(v) : Inner.SetDsAscii v : End Sub
  Public Function GetParams() : Set GetParams = Params : End Function
End Class

Class TestDsList
  Public Items
  Private Sub Class_Initialize : Set Items = New ObjList : End Sub
  Public Function DsCount() : DsCount = Items.Count() : End Function
  Public Function DsItem(i) : Set DsItem = Items.Item(i) : End Function
  Public Function AddDs(kind, text) : Set AddDs = NewDs(Me, text, kind) : End Function
End Class

Class TestDisplay
  Public List
  Public Function GetDataSources() : Set GetDataSources = List : End Function
End Class

' A new data source of the kind, appended to the list; kind 105 is custom.
Function NewDs(list, name, kind)
  Dim ds, wrapper
  Set ds = New TestDs
  ds.Name = name
  ds.DsType = kind
  ds.Ascii = False
  Set ds.List = list
  Set ds.Vars = New TestDsvList
  If kind = 105 Then
    Set wrapper = New TestCustomDs
    Set wrapper.Inner = ds
    Set wrapper.Params = NewParams(Array("host1", 4711))
    Set ds.Owner = wrapper
  Else
    Set ds.Owner = ds
  End If
  Set ds.Vars.Parent = ds.Owner
  list.Items.Add ds.Owner
  Set NewDs = ds.Owner
End Function

' A new variable appended to the data source's list; custom when the data source is.
Function NewDsv(dsOwner, name, dsvType, value)
  Dim v, wrapper
  Set v = New TestDsv
  v.Name = name
  v.DsvType = dsvType
  v.Rows = 1
  v.Cols = 1
  v.Scope = 2
  v.Value = value
  v.UseCount = 0
  Set v.Parent = dsOwner
  If dsOwner.GetDsType() = 105 Then
    Set wrapper = New TestCustomDsv
    Set wrapper.Inner = v
    Set wrapper.Params = NewParams(Array("Plant.Tank1.Level", 2))
    wrapper.Access = 1
    Set v.Owner = wrapper
  Else
    Set v.Owner = v
  End If
  dsOwner.GetDsVars().Items.Add v.Owner
  Set NewDsv = v.Owner
End Function

' The plant display the scenarios start from: a file source with two
' variables, a custom source with two, and an empty memory source.
Function NewPlantDisplay()
  Dim d, fileDs, customDs, memDs, v
  Set d = New TestDisplay
  Set d.List = New TestDsList
  Set fileDs = NewDs(d.List, "Tanks", 2)
  NewDsv fileDs, "Level", 8, 1.5
  Set v = NewDsv(fileDs, "Pressure", 5, 3)
  v.UseCount = 2
  Set customDs = NewDs(d.List, "Scada", 105)
  NewDsv customDs, "Flow", 7, 0.25
  NewDsv customDs, "Valve", 9, 0
  Set memDs = NewDs(d.List, "Scratch", 6)
  Set NewPlantDisplay = d
End Function
