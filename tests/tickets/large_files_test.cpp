#include <gtest/gtest.h>

#include <string>

#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/shop.h"
#include "tickets/piece_reader.h"
#include "tickets/waiting_tickets.h"

// A large file does not block the program: events are delivered while it is read, split and searched, and
// nothing of it is sent once the end is requested.

namespace orvenza::test {
namespace {

using namespace std::chrono_literals;
using Lines = Shop::Lines;

std::string Repeated(const std::string& text, std::size_t bytes) {
  std::string all;
  while (all.size() < bytes) all += text;
  return all;
}

int CallsFor(std::size_t size) {
  MemoryFiles files;
  files.content["a"] = std::string(size, 'x');
  int calls = 0;
  EXPECT_EQ(ReadInPieces(files, "a", [&] { ++calls; }), files.content["a"]);
  return calls;
}

TEST(PieceReader, CallsAfterEachPieceAndNotForASmallFile) {
  EXPECT_EQ(CallsFor(0), 0);
  EXPECT_EQ(CallsFor(PieceReader::kPiece - 1), 0);
  EXPECT_EQ(CallsFor(PieceReader::kPiece + 1), 1);
  EXPECT_EQ(CallsFor(10 * PieceReader::kPiece + 1), 10);
}

TEST(PieceReader, ReadsWithoutACallToo) {
  MemoryFiles files;
  files.content["a"] = std::string(3 * PieceReader::kPiece, 'x');
  EXPECT_EQ(ReadInPieces(files, "a", {}), files.content["a"]);
}

/// Runs `action` as an event as soon as the file is opened in the in-process folder.
void OnOpening(Shop& shop, const std::function<void()>& action) {
  shop.files.Before("OpenForReading", [&shop, action, done = false](const std::string& path) mutable {
    if (done || !path.ends_with("inproces\\ticket.txt")) return;
    done = true;
    shop.After(0ms, action);
  });
}

/// Nothing was sent, and the file is unchanged in its place.
void ExpectUntouched(const Shop& shop, const std::string& content) {
  EXPECT_EQ(shop.SentForTickets(), Lines{});
  EXPECT_EQ(shop.LogForTickets().size(), shop.LogForTickets().empty() ? 0U : 1U);
  EXPECT_EQ(shop.Names("data\\inproces"), Lines{"ticket.txt"});
  EXPECT_TRUE(shop.folder.Read("data\\inproces\\ticket.txt") == content);
  EXPECT_EQ(shop.Log().back(), "End");
}

TEST(LargeFile, TheProgramEndsWhileItIsRead) {
  const std::string content = Repeated("0;1;\r\n", 3 * PieceReader::kPiece);
  Shop shop;
  shop.DropBytes("ticket.txt", content);
  OnOpening(shop, [&] { shop.loop.RequestEnd({.unload = true}); });
  shop.RunToItsEnd();
  ExpectUntouched(shop, content);
}

TEST(LargeFile, TheMenuWorksWhileItIsSplitAndNoPartIsLeftAtTheEnd) {
  const std::string content = Repeated("0;1;\r\n4;1;\r\n", 3 * PieceReader::kPiece);
  Shop shop;
  shop.Configure("General", "File Parser", "1");
  shop.DropBytes("ticket.txt", content);
  shop.Answer("Sì");
  OnOpening(shop, [&] { shop.UseMenu(MenuItem::kExit); });
  int parts = 0;
  shop.files.Before("Write",
                    [&](const std::string& path) { parts += path.find("inproces") != std::string::npos; });
  shop.RunToItsEnd();
  ExpectUntouched(shop, content);
  EXPECT_GT(parts, 0);
  EXPECT_EQ(shop.Log()[shop.Log().size() - 2], "Applicazione terminata dall'Operatore");
}

TEST(LargeFile, AClosureAskedForWhileItIsReadComesLast) {
  Shop shop;
  shop.DropBytes("ticket.txt", "40;1;\r\n" + std::string(3 * PieceReader::kPiece, '\n'));
  shop.Drop("z.txt", {"40;2;"});
  for (const char* answer : {"Chiusura Fiscale", "Sì", "Sì"}) shop.Answer(answer);
  OnOpening(shop, [&] { shop.UseMenu(MenuItem::kUtilities); });
  shop.Run(20s);
  EXPECT_EQ(shop.SentForTickets(), (Lines{"104901", "104902", "300101"}));
  EXPECT_EQ(shop.Names("data"), (Lines{}));
  EXPECT_EQ(shop.Err(), Lines{});
}

TEST(LargeFile, QuitIsHeardWhileItIsRead) {
  const std::string content = Repeated("0;1;\r\n", 20 * PieceReader::kPiece);
  Shop shop;
  shop.DropBytes("ticket.txt", content);
  OnOpening(shop, [&] { shop.folder.Write("command.txt", "QUIT"); });
  shop.RunToItsEnd();
  ExpectUntouched(shop, content);
  EXPECT_EQ(shop.Log()[shop.Log().size() - 2], "Quit Command !");
  EXPECT_FALSE(shop.folder.Has("command.txt"));
}

TEST(LargeFile, ATicketThatNeedsNoSplittingIsLookedThroughOnce) {
  Shop shop;
  shop.Configure("General", "File Parser", "1");
  LeaveInProcess(shop, "a.txt", 1, 1000);
  LeaveInProcess(shop, "z.txt", 2, 2000);
  shop.files.FailAlways("OpenForReading", "a.txt", error_number::kPermissionDenied);
  int opened = 0;
  shop.files.Before("OpenForReading", [&](const std::string& path) { opened += path.ends_with("z.txt"); });
  shop.Run(4s);
  EXPECT_EQ(opened, 1) << "while the older one holds it up";
}

}  // namespace
}  // namespace orvenza::test
