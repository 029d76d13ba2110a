#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// The result of a command according to the register's reply, decided only here. doubt_policy.h decides the
/// consequences.
class Reply {
 public:
  enum class Kind {
    kSilence,      ///< Nothing readable arrived in time.
    kDone,         ///< The answer to the command: it begins with the command's code.
    kRefused,      ///< "ERR" and a code: not executed.
    kPaperOut,     ///< Code 01 or 02. The command may be half done.
    kLinkError,    ///< "ERR-1" to "ERR-3", raised by the control.
    kInvalidLine,  ///< "ERR**": the ticket's line is not a command.
    kGarbled,      ///< Not an error, but not an answer to this command either.
  };

  /// Silence.
  Reply() = default;

  /// `text`, as the control delivered it, is the reply to a command that begins with `code`.
  Reply(std::string text, std::string_view code);

  /// The reply to a line that cannot be sent.
  static Reply InvalidLine() { return {"ERR**", {}}; }

  [[nodiscard]] bool Is(Kind kind) const { return kind_ == kind; }

  /// Whether it begins with "ERR".
  [[nodiscard]] bool IsError() const;
  /// Whether it is an error that ends in the two characters `code`.
  [[nodiscard]] bool IsError(std::string_view code) const;

  /// Whether the register has certainly not executed the command.
  [[nodiscard]] bool IsRefusal() const { return Is(Kind::kRefused) || Is(Kind::kInvalidLine); }

  /// Link error 2 alone.
  [[nodiscard]] bool IsLinkError2() const { return text_.starts_with("ERR-2"); }
  /// Whether the receipt has become too long for the register.
  [[nodiscard]] bool IsReceiptTooLong() const;

  /// The last two characters of an error, which identify it.
  [[nodiscard]] std::string_view Code() const;
  /// The two characters after "ERR", which the register expects in the next attempt.
  [[nodiscard]] std::string FirstCode() const;

  /// As delivered; empty for silence.
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
  Kind kind_ = Kind::kSilence;
};

}  // namespace orvenza
