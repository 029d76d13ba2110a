#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "tickets/document_progress.h"

namespace orvenza {

// Where the documents of a ticket end, counted in lines of its text. `separator` divides the fields.

/// Number of lines up to the end of the document that line `number`, from 1, belongs to, further payments
/// included. A line that stands alone is a document of its own; a document without an end takes all lines.
[[nodiscard]] std::size_t LinesThroughDocument(std::string_view text, std::size_t number, char separator);

/// Number of lines that are complete if the command of line `number` was carried out, which completes
/// something: if the line itself does not, that was the payment that divides a receipt in front of it.
[[nodiscard]] std::size_t LinesThroughCommand(std::string_view text, std::size_t number, char separator);

/// Number of lines in front of the next document behind `count` lines; empty if there is none. Lines that
/// leave nothing on paper are no documents.
[[nodiscard]] std::optional<std::size_t> LinesBeforeDocument(std::string_view text, std::size_t count,
                                                             char separator);

/// Number of lines that are complete: with the payment, unless another one follows it.
[[nodiscard]] std::size_t CompleteLines(std::string_view text, const DocumentProgress& progress,
                                        char separator);

/// Whether anything is left to be sent behind `count` lines.
[[nodiscard]] bool AnythingBehind(std::string_view text, std::size_t count, char separator);

/// Whether any line completes something on paper: a receipt, a document, a cash movement, a closure, a
/// report.
[[nodiscard]] bool CompletesAnything(std::string_view text, char separator);

/// Whether both texts begin with the same `count` lines.
[[nodiscard]] bool BeginAlike(std::string_view text, std::string_view other, std::size_t count);

}  // namespace orvenza
