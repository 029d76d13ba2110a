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
  std::string heading;  ///< Choice dialogs only.
  std::string text;     ///< For a port dialog, the initially selected entries, in the form of an answer.
  MessageIcon icon = MessageIcon::kNone;
  std::vector<std::string> options;  ///< Only for a choice dialog with a visible frame.
  std::vector<std::string> buttons;
  std::string answer;  ///< The answers taken, joined by ", "; empty if none.
  int selected = 0;    ///< The initially selected one of `options`, from 1; 0 none.
};

/// The dialogs as they are shown.
ShownDialog DialogOf(const MessageContent& content);
ShownDialog DialogOf(const ChoiceContent& content);
ShownDialog DialogOf(const PortContent& content);
ShownDialog DialogOf(const UtilitiesContent& content);

/// The form in which captions and answers are compared.
std::string ComparableCaption(std::string_view caption);

/// The entries of a port dialog that are selected, in the form of an answer; "-" for a list without one.
std::string EntriesOf(const PortContent& content, const std::array<int, 5>& selected);

/// Thrown when a dialog finds no answer. Deliberately not a std::exception: traps, which log a failure and
/// carry on, must let it pass, or the run would never end.
struct UnansweredDialog {
  ShownDialog dialog;
};

/// Thrown when the next answer does not fit the dialog. Not a std::exception, for the same reason.
struct BadAnswer {
  std::string answer;
  ShownDialog dialog;
};

/// Prints one line such as: message "Orvenza - Attenzione !" "\r\nSei sicuro ?" [Sì|No] <- No
std::ostream& operator<<(std::ostream& out, const ShownDialog& dialog);

/// The person at the till, played from a list of answers that the dialogs take in order.
///
/// Answers are compared ignoring "&" and the case of the letters a to z. An answer is one of:
/// - the caption of a button ("Riprova"); on a choice dialog or a port dialog it confirms the current
/// selection;
/// - on a choice dialog, the text of an option, which is selected and confirmed;
/// - on a port dialog, entries of its lists separated by blanks ("COM3 9600 None"), which are selected and
///   confirmed; at most one entry per list, in the order of the lists;
/// - "close": the dialog is closed by other means;
/// - "menu " and the caption of an item: the icon's menu is used while the dialog waits. Unless that closes
///   the dialog, it then takes the next answer.
class ScriptedOperator : public Operator {
 public:
  explicit ScriptedOperator(EventLoop& loop) : loop_(loop) {}

  /// Appends an answer to the list. The operator takes `reaction` to give it; a dialog that opens on top
  /// meanwhile gets it instead.
  void Answer(std::string answer, std::chrono::milliseconds reaction = {});

  /// Drops the next answer if its reaction takes `reaction` or longer: the dialog that waited for it is gone.
  void DropAnswerAfter(std::chrono::milliseconds reaction);

  /// An answer, and the time that the operator takes to give it.
  struct PlannedAnswer {
    PlannedAnswer(std::string what, std::chrono::milliseconds after = {})
        : text(std::move(what)), reaction(after) {}
    std::string text;
    std::chrono::milliseconds reaction;
  };

  /// Answers when the list is empty; "" means no answer.
  using Judgement = std::function<PlannedAnswer(const ShownDialog&)>;
  void SetJudgement(Judgement judgement) { judgement_ = std::move(judgement); }

  /// Called for a "menu" answer.
  void SetMenuHandler(std::function<void(MenuItem)> handler) { menuHandler_ = std::move(handler); }

  /// Receives each dialog: with an empty answer when it opens, then with each answer that it takes.
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
  class OpenMessage;

  ShownDialog& Record(ShownDialog dialog);
  /// The next answer that is not for the menu; empty when the dialog was closed or `closed` is set.
  std::optional<std::string> NextAnswer(ShownDialog& dialog, const bool& closed);
  /// Waits for the next answer's reaction time. False when the dialog must check again what it waits for.
  bool React(const bool& closed);
  std::string Take(ShownDialog& dialog);
  void UseMenu(const ShownDialog& dialog, const std::string& answer);

  EventLoop& loop_;
  std::function<void(MenuItem)> menuHandler_;
  Observer observer_;
  Judgement judgement_;
  std::deque<PlannedAnswer> answers_;
  std::size_t answersTaken_ = 0;
  std::deque<ShownDialog> shown_;    ///< A deque, since a nested dialog must not move the outer one.
  std::vector<bool*> openMessages_;  ///< For each open message: set when it is closed.
};

}  // namespace orvenza
