#pragma once

#include <string>

#include "support/shop.h"

namespace orvenza::test {

// Ticket lines with ";" as separator, their commands, and the operator's choices.

/// The command for an item of 1,00 with this description of at most 16 characters.
inline std::string ItemCommand(const std::string& description) {
  return "100301" + std::string(40, ' ') + description + std::string(16 - description.size(), ' ') +
         "0001000" + "1" + "000000100" + "01";
}

inline std::string ItemLineOf(const std::string& description, char separator = ';') {
  std::string line = "1;" + description + ";1,000;100;1;;;1;;";
  std::replace(line.begin(), line.end(), ';', separator);
  return line;
}

inline const std::string kCoffee = ItemLineOf("CAFFE");
inline const std::string kCoffeeCommand = ItemCommand("CAFFE");
inline const std::string kPayment = "2;1;100;";
inline const std::string kPaymentCommand = "103601000000100";

inline const std::string kPrinted = "Scontrino stampato, continuare";
inline const std::string kReprint = "Ristampare lo scontrino ( annullare automaticamente )";
inline const std::string kGiveUp = "Abortire la stampa dello scontrino";
inline const std::string kAnswered = "Risposta Operatore : ";
/// The dialog is closed without a choice.
inline const std::string kClosed = "close";

/// The error log's line when ticket.txt is given up, perhaps without the operator's choice.
inline std::string GivenUp(const Shop& shop) {
  return "Abort stampa scontrino. " + shop.Spelled("data\\inproces\\ticket.txt");
}

/// Every command since start-up, including the status queries before and between the lines.
inline Shop::Lines SentAfterStartUp(const Shop& shop) {
  const Shop::Lines sent = shop.Sent();
  return {sent.begin() + 2, sent.end()};
}

}  // namespace orvenza::test
