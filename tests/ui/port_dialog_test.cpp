#include "ui/port_dialog.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "ui/fakes.h"

namespace orvenza::test {
namespace {

using Selection = std::array<int, 5>;
using Entries = std::vector<std::string>;

class PortDialogTest : public ::testing::Test {
 protected:
  void Current(int port, const std::string& text) {
    settings.ComPortNumber = port;
    settings.ComSettings = text;
  }
  /// Saves `selected` and returns the resulting values.
  std::string Save(const Selection& selected) {
    dialog.SavePortSettingsFromDialog(selected);
    return std::to_string(settings.ComPortNumber) + " " + settings.ComSettings;
  }

  FakeOperator person;
  AppSettings settings;
  FakeProfile profile;
  PortDialog dialog{person, settings, profile, {"C:\\Orvenza", "Orvenza"}};
};

TEST_F(PortDialogTest, OffersTheListsInTheirOrder) {
  const PortContent content = dialog.LoadPortSettingsIntoDialog();
  EXPECT_EQ(content.caption, "Configurazione Parametri Porta COM");
  EXPECT_EQ(content.labels,
            (std::array<std::string, 5>{"Porta COM", "Velocita'", "Parita'", "Data Bit", "Stop Bit"}));
  EXPECT_EQ(content.entries[0],
            (Entries{"COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7", "COM8", "COM9", "COM10", "COM11",
                     "COM12", "COM13", "COM14", "COM15", "COM16"}));
  EXPECT_EQ(content.entries[1], (Entries{"1200", "2400", "4800", "9600", "19200", "38400", "57600"}));
  EXPECT_EQ(content.entries[2], (Entries{"Odd", "Even", "None"}));
  EXPECT_EQ(content.entries[3], (Entries{"7", "8"}));
  EXPECT_EQ(content.entries[4], (Entries{"1", "2"}));
  EXPECT_EQ(content.button, "&Ok");
}

struct LoadCase {
  int port;
  const char* text;
  Selection selected;
};

constexpr LoadCase kLoadCases[] = {
    {3, "19200,E,7,2", {2, 4, 1, 0, 1}},    {1, "19200,O,7,1", {0, 4, 0, 0, 0}},
    {16, "1200,N,8,1", {15, 0, 2, 1, 0}},   {2, "57600,e,8,2", {1, 6, 1, 1, 1}},
    {2, "9600,n,8,1", {1, 3, 2, 1, 0}},     {0, "115200,M,9,1.5", {-1, -1, -1, -1, -1}},
    {17, "19200,S,7,1", {-1, 4, -1, 0, 0}}, {1, "19200,Odd,7,1", {0, 4, -1, 0, 0}},
    {1, "9600,,8,1", {0, 3, -1, 1, 0}},     {1, "9600", {0, 3, -1, -1, -1}},
    {1, "", {0, -1, -1, -1, -1}},           {1, "19200,O,7,1,2,3", {0, 4, 0, 0, 0}},
    {1, " 19200,O,7,1", {0, -1, 0, 0, 0}},
};

TEST_F(PortDialogTest, SelectsTheCurrentValuesAndNothingForAnyOther) {
  for (const LoadCase& row : kLoadCases) {
    Current(row.port, row.text);
    EXPECT_EQ(dialog.LoadPortSettingsIntoDialog().selected, row.selected) << row.port << " " << row.text;
  }
}

struct SaveCase {
  Selection selected;
  const char* result;
};

TEST_F(PortDialogTest, SavesTheSelectedEntries) {
  constexpr SaveCase kCases[] = {
      {{0, 0, 0, 0, 0}, "1 1200,O,7,1"},
      {{15, 6, 1, 1, 1}, "16 57600,E,8,2"},
      {{8, 3, 2, 1, 0}, "9 9600,N,8,1"},
  };
  for (const SaveCase& row : kCases) {
    Current(3, "19200,E,7,2");
    EXPECT_EQ(Save(row.selected), row.result);
  }
}

TEST_F(PortDialogTest, KeepsWhatAListWithoutSelectionStandsFor) {
  constexpr SaveCase kCases[] = {
      {{-1, 3, 2, 1, 0}, "3 9600,N,8,1"},     {{0, -1, 2, 1, 0}, "1 115200,N,8,1"},
      {{0, 3, -1, 1, 0}, "1 9600,M,8,1"},     {{0, 3, 2, -1, 0}, "1 9600,N,6,1"},
      {{0, 3, 2, 1, -1}, "1 9600,N,8,1.5"},   {{-1, -1, -1, -1, -1}, "3 115200,M,6,1.5"},
      {{16, 7, 3, 2, 2}, "3 115200,M,6,1.5"},
  };
  for (const SaveCase& row : kCases) {
    Current(3, "115200,M,6,1.5");
    EXPECT_EQ(Save(row.selected), row.result);
  }
}

TEST_F(PortDialogTest, LeavesLineSettingsThatWouldLackAPart) {
  Current(3, "19200,O");
  EXPECT_EQ(Save({4, 3, 2, 1, -1}), "5 19200,O");
  EXPECT_EQ(profile.written, (Entries{"C:\\Orvenza\\Orvenza.ini|Com Settings|ComPort=5"}));
}

TEST_F(PortDialogTest, CompletesLineSettingsOnceEveryListHasASelection) {
  Current(3, "");
  EXPECT_EQ(Save({4, 4, 0, 0, 0}), "5 19200,O,7,1");
}

TEST_F(PortDialogTest, WritesBothValuesToTheSettingsFileWhenConfirmedUnchanged) {
  Current(3, "19200,E,7,2");
  person.portAnswer = dialog.LoadPortSettingsIntoDialog().selected;

  dialog.Show();

  EXPECT_EQ(profile.written, (Entries{"C:\\Orvenza\\Orvenza.ini|Com Settings|ComPort=3",
                                      "C:\\Orvenza\\Orvenza.ini|Com Settings|Settings=19200,E,7,2"}));
  EXPECT_EQ(settings.ComPortNumber, 3);
  EXPECT_EQ(settings.ComSettings, "19200,E,7,2");
}

TEST_F(PortDialogTest, SavesWhatWasConfirmed) {
  Current(3, "19200,E,7,2");
  person.portAnswer = Selection{6, 3, 2, 1, 0};
  dialog.Show();
  EXPECT_EQ(person.ports.at(0).selected, (Selection{2, 4, 1, 0, 1}));
  EXPECT_EQ(profile.written, (Entries{"C:\\Orvenza\\Orvenza.ini|Com Settings|ComPort=7",
                                      "C:\\Orvenza\\Orvenza.ini|Com Settings|Settings=9600,N,8,1"}));
}

TEST_F(PortDialogTest, ChangesNothingWhenClosed) {
  Current(3, "19200,E,7,2");
  dialog.Show();
  EXPECT_EQ(profile.attempts, 0);
  EXPECT_EQ(settings.ComPortNumber, 3);
  EXPECT_EQ(settings.ComSettings, "19200,E,7,2");
}

TEST_F(PortDialogTest, TriesBothValuesAndKeepsThemWhenTheFileCannotBeWritten) {
  Current(3, "19200,E,7,2");
  profile.writesFail = true;
  EXPECT_EQ(Save({0, 3, 2, 1, 0}), "1 9600,N,8,1");
  EXPECT_EQ(profile.attempts, 2);
}

TEST_F(PortDialogTest, OpensOnceAtATime) {
  person.whileShown = [&, again = true]() mutable {
    if (std::exchange(again, false)) dialog.Show();
  };
  dialog.Show();
  EXPECT_EQ(person.ports.size(), 1U);
}

TEST_F(PortDialogTest, IsClosedAfterTheProgramEnd) {
  person.whileShown = [] { throw ProgramEnd{true}; };
  EXPECT_THROW(dialog.Show(), ProgramEnd);
  person.whileShown = {};
  dialog.Show();
  EXPECT_EQ(person.ports.size(), 2U);
}

}  // namespace
}  // namespace orvenza::test
