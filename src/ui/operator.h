#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvenza {

enum class MessageIcon { kNone, kStop, kQuestion, kExclamation, kInformation };

/// Content of the message dialog `Orv_Msg`.
struct MessageContent {
  std::string caption;
  std::string text;      ///< Including the leading line break of a short text.
  bool centred = false;  ///< Centred instead of left-aligned.
  MessageIcon icon = MessageIcon::kNone;
  std::vector<std::string> buttons;  ///< One to three captions; the first has the focus.
};

/// Content of the choice dialog `Orv_Info`.
struct ChoiceContent {
  std::string caption;
  std::string heading;               ///< `Label1`.
  std::string text;                  ///< `Label2`.
  bool frameVisible = false;         ///< `Frame1` and the options in it.
  std::vector<std::string> options;  ///< Captions of `Option1`.
  int selected = 0;                  ///< Option selected initially, from 1; 0 none.
  std::string button;                ///< Caption of `Command1`, with its "&".
};

/// Content of the port dialog `Orv_Conf`: the lists `Combo1` to `Combo5` with their labels.
struct PortContent {
  std::string caption;  ///< Caption of `Frame1`.
  std::array<std::string, 5> labels;
  std::array<std::vector<std::string>, 5> entries;
  std::array<int, 5> selected{};  ///< Index of the selected entry of each list, from 0; -1 none.
  std::string button;             ///< Caption of `Command1`.
};

/// Content of the utilities dialog `Orv_Uti`: the captions of `Command1` to `Command3`.
struct UtilitiesContent {
  std::string caption;
  std::array<std::string, 3> buttons;
};

/// The person at the till. Every call is modal: it delivers events while it waits and returns when the dialog
/// is closed. It throws ProgramEnd if the program ends meanwhile.
class Operator {
 public:
  virtual ~Operator() = default;

  /// Shows the message dialog. Returns the number of the pressed button, from 1; nothing when the dialog was
  /// closed by other means.
  virtual std::optional<int> ShowMessage(const MessageContent& content) = 0;

  /// Closes every message dialog that waits now; their calls return nothing once control is back with them.
  virtual void CloseMessage() = 0;

  /// Shows the choice dialog. Returns the option selected when the button was pressed, from 1, or 0 if none
  /// was. Empty when the dialog was closed by other means.
  [[nodiscard]] virtual std::optional<int> ShowChoice(const ChoiceContent& content) = 0;

  /// Shows the port dialog. Returns the selected indices when it was confirmed; empty when it was closed.
  [[nodiscard]] virtual std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) = 0;

  /// Shows the utilities dialog and calls `pressed` with the number of each pressed button, 1 to 3. The
  /// dialog closes when `pressed` returns true, or by other means.
  virtual void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) = 0;
};

}  // namespace orvenza
