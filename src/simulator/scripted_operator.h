#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/event_loop.h"
#include "ui/menu.h"
#include "ui/operator.h"

namespace orvenza {

enum class DialogKind { kMessage, kChoice, kPortSettings, kUtilities };

/// One dialog as the operator saw it.
struct ShownDialog {
  DialogKind kind = DialogKind::kMessage;
  std::string caption;
  std::string heading;  ///< Of a choice dialog.
  std::string text;     ///< Of a port dialog, the entries selected at first, as an answer names them.
  MessageIcon icon = MessageIcon::kNone;
  std::vector<std::string> options;  ///< Of a choice dialog whose frame is visible.
  std::vector<std::string> buttons;
  std::string answer;  ///< What it was answered, several answers joined by ", "; empty when none was taken.
  int selected = 0;    ///< Of `options`, the one selected at first, from 1; 0 none.
};

/// Thrown by a dialog that finds no answer left. Not a std::exception on purpose: the traps that log a
/// failure and carry on must let it pass, or the run would never end.
struct UnansweredDialog {
  ShownDialog dialog;
};

/// Thrown when the next answer fits nothing in the dialog. Not a std::exception, for the same reason.
struct BadAnswer {
  std::string answer;
  ShownDialog dialog;
};

/// One line such as: message "Orvenza - Attenzione !" "\r\nSei sicuro ?" [Sì|No] <- No
std::ostream& operator<<(std::ostream& out, const ShownDialog& dialog);

/// The person at the till, played from a list of answers that the dialogs take in their order.
///
/// An answer is, "&" and the case of the letters a to z aside:
/// - the caption of a button ("Riprova"); on a choice dialog it confirms what is selected, on a port dialog
///   what stands there;
/// - on a choice dialog, the text of an option, which is selected and confirmed;
/// - on a port dialog, entries of its lists between blanks ("COM3 9600 None"), which are selected and
///   confirmed, each list taking at most one and the lists in their order;
/// - "close": the dialog is closed by other means;
/// - "menu " and the caption of an item: the icon's menu is used while the dialog waits. Unless that closes
///   the dialog, it then takes the next answer.
class ScriptedOperator : public Operator {
 public:
  explicit ScriptedOperator(EventLoop& loop) : loop_(loop) {}

  /// Adds an answer at the end of the list. The operator takes `reaction` to give it, and a dialog that
  /// appears meanwhile on top of the waiting one gets it instead.
  void Answer(std::string answer, std::chrono::milliseconds reaction = {});

  /// Who answers, at once, when the list is empty; "" stands for no answer.
  using Judgement = std::function<std::string(const ShownDialog&)>;
  void SetJudgement(Judgement judgement) { judgement_ = std::move(judgement); }

  /// What a "menu" answer calls.
  void SetMenuHandler(std::function<void(MenuItem)> handler) { menuHandler_ = std::move(handler); }

  /// Who is told of each dialog, with an empty answer when it appears and then with each answer it takes.
  using Observer = std::function<void(const ShownDialog&, std::string_view answer)>;
  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  /// Every dialog so far, oldest first.
  const std::deque<ShownDialog>& Shown() const { return shown_; }

  std::size_t AnswersLeft() const { return answers_.size(); }

  std::optional<int> ShowMessage(const MessageContent& content) override;
  void CloseMessage() override;
  std::optional<int> ShowChoice(const ChoiceContent& content) override;
  std::optional<std::array<int, 5>> ShowPortSettings(const PortContent& content) override;
  void ShowUtilities(const UtilitiesContent& content, const std::function<bool(int)>& pressed) override;

 private:
  struct PlannedAnswer {
    std::string text;
    std::chrono::milliseconds reaction;
  };
  class OpenMessage;

  ShownDialog& Record(ShownDialog dialog);
  /// The next answer that is not for the menu; nothing when the dialog was closed, `closed` included.
  std::optional<std::string> NextAnswer(ShownDialog& dialog, const bool& closed);
  /// Lets the time of the next answer pass. False when the dialog must look again at what it waits for.
  bool React(const bool& closed);
  std::string Take(ShownDialog& dialog);
  void UseMenu(const ShownDialog& dialog, const std::string& answer);

  EventLoop& loop_;
  std::function<void(MenuItem)> menuHandler_;
  Observer observer_;
  Judgement judgement_;
  std::deque<PlannedAnswer> answers_;
  std::size_t answersTaken_ = 0;
  std::deque<ShownDialog> shown_;    ///< A deque: a dialog inside a dialog must not move the outer one.
  std::vector<bool*> openMessages_;  ///< Of each message that waits now: whether it was closed.
};

}  // namespace orvenza
