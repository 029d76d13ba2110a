#pragma once

#include <cstddef>
#include <string_view>

namespace orvenza {

/// How far the documents of a ticket are complete: its receipts, non-fiscal documents, cash movements,
/// closures and reports. Counted in lines of the file, from its start.
class DocumentProgress {
 public:
  DocumentProgress() = default;
  DocumentProgress(std::size_t complete, std::size_t paid) : complete_(complete), paid_(paid) {}

  /// Line `number`, from 1, of a type was carried out.
  void Done(std::size_t number, std::string_view type);

  /// The receipt was divided: a payment closed its first part, and line `number` begins the second.
  void Divided(std::size_t number) { *this = {number - 1, 0}; }

  /// Number of lines that are complete if a line of `type` comes next, or did and was not carried out.
  [[nodiscard]] std::size_t CompleteBefore(std::string_view type) const;

  /// Number of lines that are complete in any case.
  [[nodiscard]] std::size_t Complete() const { return complete_; }
  /// The last line carried out if it is a payment, otherwise 0. Unless another payment follows, the receipt
  /// is complete with it.
  [[nodiscard]] std::size_t Paid() const { return paid_; }

  bool operator==(const DocumentProgress&) const = default;

 private:
  std::size_t complete_ = 0;
  std::size_t paid_ = 0;
};

}  // namespace orvenza
