// Hands a sale over to Orvenza and waits for its outcome: Sale TICKETS OUTCOMES NUMBER [SECONDS]
//
// TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
// Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
// Delphi, and Free Pascal with "fpc -Mdelphi Sale.pas".
program Sale;

{$APPTYPE CONSOLE}

uses
  SysUtils, Classes;

const
  // Windows-1252; a field ends in the character 127, a line in CR LF.
  Ticket: array [0 .. 1] of RawByteString = (
    '1'#127'Caffe'' espresso'#127'1,000'#127'120'#127'1'#127#127#127'1'#127#127#13#10,
    '2'#127'1'#127'200'#127#13#10);

procedure HandOver(const Path: string);
var
  Line: RawByteString;
  Stream: TFileStream;
begin
  if FileExists(Path) then raise Exception.Create(Path + ' is still waiting');
  Stream := TFileStream.Create(Path + '.tmp', fmCreate); // a name that the mask *.txt does not match
  try
    for Line in Ticket do Stream.WriteBuffer(Line[1], Length(Line));
  finally
    Stream.Free;
  end;
  if not RenameFile(Path + '.tmp', Path) then raise Exception.Create(Path + ' cannot be renamed');
end;

procedure FindOutcomes(const Folder, Name: string; Found: TStrings);
var
  Entry: TSearchRec;
begin
  Found.Clear;
  if FindFirst(Folder + Name + '*.ini', faAnyFile, Entry) = 0 then
    repeat Found.Add(Entry.Name) until FindNext(Entry) <> 0;
  FindClose(Entry);
end;

function Sell(const Tickets, Outcomes, Name: string; Seconds: Integer): Integer;
var
  Older, Found, Outcome: TStringList;
  I, Tries: Integer;
begin
  Older := TStringList.Create; // if the name was used before, the new outcome gets a number
  Found := TStringList.Create;
  Outcome := TStringList.Create; // reads KEY=VALUE by itself
  FindOutcomes(Outcomes, Name, Older);
  HandOver(Tickets + Name);
  for Tries := 1 to 2 * Seconds do
  begin
    FindOutcomes(Outcomes, Name, Found);
    for I := 0 to Found.Count - 1 do
    begin
      if Older.IndexOf(Found[I]) >= 0 then Continue;
      try
        Outcome.LoadFromFile(Outcomes + Found[I]);
      except
        on EStreamError do Outcome.Clear; // it is just being replaced; the next look reads it
      end;
      if Outcome.Values['State'] <> 'done' then Continue;
      WriteLn(Name, ': ', Outcome.Values['Receipt'], ' (', Outcome.Values['Reason'], ')');
      Result := Ord((Outcome.Values['Receipt'] <> 'yes') and (Outcome.Values['Receipt'] <> 'none'));
      Exit;
    end;
    Sleep(500);
  end;
  WriteLn(Name, ': not done; do not send it again before somebody has looked');
  Result := 3;
end;

begin
  try
    // Names of one length: receipts are printed in the order of their numbers.
    ExitCode := Sell(IncludeTrailingPathDelimiter(ParamStr(1)), IncludeTrailingPathDelimiter(ParamStr(2)),
      Format('%.8d.txt', [StrToInt(ParamStr(3))]), StrToIntDef(ParamStr(4), 60));
  except
    on Failure: Exception do
    begin
      WriteLn(ErrOutput, Failure.Message);
      ExitCode := 2;
    end;
  end;
end.
