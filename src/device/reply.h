#pragma once

#include <string>
#include <string_view>

namespace orvenza {

/// What a command came to, as far as the register's reply says: decided here alone. What follows from it is
/// the affair of reply_policy.h.
class Reply {
 public:
  enum class Kind {
    kSilence,      ///< Nothing came in time, or nothing that could be read.
    kDone,         ///< The answer to the command: it begins with the command's code.
    kRefused,      ///< "ERR" and a code: not carried out.
    kPaperOut,     ///< Code 01 or 02. The command may be half done.
    kLinkError,    ///< "ERR-1" to "ERR-3", raised by the control.
    kInvalidLine,  ///< "ERR**": the ticket's line is no command.
    kGarbled,      ///< No error, but no answer to this command either.
  };

  /// Silence.
  Reply() = default;

  /// `text`, as the control delivered it, in answer to a command that begins with `code`.
  Reply(std::string text, std::string_view code);

  /// The reply to a line that cannot even be sent.
  static Reply InvalidLine() { return {"ERR**", {}}; }

  [[nodiscard]] bool Is(Kind kind) const { return kind_ == kind; }

  /// Whether it begins with "ERR".
  [[nodiscard]] bool IsError() const;
  /// Whether it is an error that ends in `code`, two characters.
  [[nodiscard]] bool IsError(std::string_view code) const;

  /// Link error 2 alone.
  [[nodiscard]] bool IsLinkError2() const { return text_.starts_with("ERR-2"); }
  /// Whether the receipt has become too long for the register.
  [[nodiscard]] bool IsReceiptTooLong() const;

  /// An error's code: its last two characters. It decides what the error is.
  [[nodiscard]] std::string_view Code() const;
  /// The two characters behind "ERR", which the register wants back in the next try.
  [[nodiscard]] std::string FirstCode() const;

  /// As it was delivered; empty for silence.
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
  Kind kind_ = Kind::kSilence;
};

}  // namespace orvenza
