#include "ui/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {
namespace {

constexpr int kResolutions[] = {96, 120, 144, 192};
constexpr int kMessagePoints = 13;

/// A screen with the same size in inches at every resolution.
Extent Screen(int dpi) { return {1024 * dpi / 96, 768 * dpi / 96}; }

/// A simple typeface: characters are half as wide as the type is high, lines a fifth higher.
class Typeface {
 public:
  Typeface(int points, int dpi) : height_(points * dpi / 72) {}

  int LineHeight() const { return height_ * 6 / 5; }
  int WidthOf(const std::string& text) const { return static_cast<int>(CountCharacters(text)) * height_ / 2; }

  TextMeasure MeasureOf(const std::string& text) const {
    return [*this, text](int widest) {
      Extent size;
      for (const std::string& line : Split(text, kLineBreak)) Break(line, widest, size);
      return size;
    };
  }

 private:
  static std::vector<std::string> Split(std::string text, const std::string_view separator) {
    std::vector<std::string> parts;
    for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator)) {
      parts.push_back(text.substr(0, end));
      text.erase(0, end + separator.size());
    }
    parts.push_back(text);
    return parts;
  }

  void Break(const std::string& line, int widest, Extent& size) const {
    std::string row;
    for (const std::string& word : Split(line, " ")) {
      const std::string longer = row.empty() ? word : row + " " + word;
      if (!row.empty() && WidthOf(longer) > widest) {
        Add(row, size);
        row = word;
      } else {
        row = longer;
      }
    }
    Add(row, size);
  }

  void Add(const std::string& row, Extent& size) const {
    size.width = std::max(size.width, WidthOf(row));
    size.height += LineHeight();
  }

  int height_;
};

MessageParts Message(const std::string& text, int dpi, int buttons = 2) {
  return {Typeface(kMessagePoints, dpi).MeasureOf(text), CountCharacters(text) < 60, true, buttons};
}

std::string Lines(MessageId first, MessageId second) {
  return LoadMessage(first) + std::string(kLineBreak) + LoadMessage(second);
}

/// A short message with its empty line, as it is shown.
std::string Short(const std::string& text) { return std::string(kLineBreak) + text; }

/// The longest messages of the program.
std::vector<std::string> LongestMessages() {
  using enum MessageId;
  return {Lines(kNoReceiptsAfterEnd, kAreYouSure),         Lines(kTicketsWaiting, kConfirmClosure),
          Lines(kReceiptNotVoided, kCloseReceiptQuestion), Lines(kSendingVoid, kCheckKey),
          Lines(kPortNotOpened, kConfigurePortQuestion),   Short(Lines(kWrongIniVersion, kProgramEnded)),
          Short(LoadMessage(MessageId::kNoReply)),         Short(LoadMessage(MessageId::kIniUpgraded))};
}

std::string WrongPath() {
  const std::string lineBreak(kLineBreak);
  return LoadMessage(MessageId::kWrongPath) + lineBreak + "Z:\\" + std::string(90, 'w') + "\\data\\" +
         lineBreak + lineBreak + LoadMessage(MessageId::kProgramWillEnd);
}

bool LiesIn(const Box& box, Extent form) {
  return box.left >= 0 && box.top >= 0 && box.Right() <= form.width && box.Bottom() <= form.height;
}

bool Overlap(const Box& a, const Box& b) {
  return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

bool LieApart(const std::vector<Box>& boxes, Extent form) {
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (!LiesIn(boxes[i], form)) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (Overlap(boxes[i], boxes[j])) return false;
    }
  }
  return true;
}

std::vector<Box> BoxesOf(const MessageLayout& layout) {
  // The empty first line of a centred text may lie above the form.
  const int top = std::max(0, layout.text.top);
  std::vector<Box> boxes{layout.icon, {layout.text.left, top, layout.text.width, layout.text.Bottom() - top}};
  boxes.insert(boxes.end(), layout.buttons.begin(), layout.buttons.end());
  return boxes;
}

TEST(Pixels, RoundFormUnits) {
  EXPECT_EQ(Pixels(1275, 96), 85);
  EXPECT_EQ(Pixels(1275, 120), 106);
  EXPECT_EQ(Pixels(1275, 144), 128);
  EXPECT_EQ(Pixels(1275, 192), 170);
  EXPECT_EQ(Pixels(0, 96), 0);
}

TEST(MessageLayout, PlacesAShortMessage) {
  const MessageLayout layout = LayOutMessage(Message(Short("Attenzione !"), 96, 1), 96, Screen(96));
  EXPECT_EQ(layout.form, (Extent{400, 102}));
  EXPECT_EQ(layout.icon, (Box{12, 16, 32, 32}));
  EXPECT_EQ(layout.text, (Box{56, 1, 332, 40}));
  EXPECT_EQ(layout.buttons, (std::vector<Box>{{157, 65, 85, 25}}));
}

TEST(MessageLayout, CentresItsRowOfButtons) {
  const struct {
    int dpi;
    std::vector<Box> buttons;
  } kRows[] = {
      {96, {{72, 65, 85, 25}, {157, 65, 85, 25}, {242, 65, 85, 25}}},
      {120, {{91, 82, 106, 31}, {197, 82, 106, 31}, {303, 82, 106, 31}}},
      {144, {{109, 98, 127, 38}, {236, 98, 128, 38}, {364, 98, 127, 38}}},
      {192, {{145, 131, 170, 50}, {315, 131, 170, 50}, {485, 131, 170, 50}}},
  };
  for (const auto& row : kRows) {
    const MessageLayout layout = LayOutMessage(Message(Short("Ok ?"), row.dpi, 3), row.dpi, Screen(row.dpi));
    EXPECT_EQ(layout.buttons, row.buttons) << row.dpi;
  }
}

TEST(MessageLayout, KeepsTheButtonsInPlaceBelowEveryMessage) {
  for (const int dpi : kResolutions) {
    for (const std::string& text : LongestMessages()) {
      const MessageLayout layout = LayOutMessage(Message(text, dpi), dpi, Screen(dpi));
      EXPECT_EQ(layout.buttons.front().top, Pixels(980, dpi)) << dpi << text;
      EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form)) << dpi << text;
    }
  }
}

TEST(MessageLayout, KeepsACentredTextOffTheButtonsAndItsFirstLineInTheForm) {
  for (const int dpi : kResolutions) {
    const MessageLayout layout =
        LayOutMessage(Message(Short(Lines(MessageId::kWrongIniVersion, MessageId::kProgramEnded)), dpi, 1),
                      dpi, Screen(dpi));
    const int lineHeight = layout.text.height / 3;
    EXPECT_EQ(layout.buttons.front().top, Pixels(980, dpi)) << dpi;
    EXPECT_GE(layout.buttons.front().top - layout.text.Bottom(), Pixels(120, dpi) - 1) << dpi;
    EXPECT_GE(layout.text.top + lineHeight, Pixels(120, dpi)) << dpi << " below the empty line";
  }
}

TEST(MessageLayout, GivesTheTextTheHeightItNeeds) {
  for (const int dpi : kResolutions) {
    for (const std::string& text : LongestMessages()) {
      const MessageParts parts = Message(text, dpi);
      const MessageLayout layout = LayOutMessage(parts, dpi, Screen(dpi));
      EXPECT_GE(layout.text.height, parts.text(layout.text.width).height) << dpi << text;
    }
  }
}

TEST(MessageLayout, GrowsWiderUntilTheTextHasTwoLines) {
  const MessageParts parts = Message(Lines(MessageId::kNoReceiptsAfterEnd, MessageId::kAreYouSure), 96);
  const MessageLayout layout = LayOutMessage(parts, 96, Screen(96));
  EXPECT_EQ(layout.text.height, 40);
  EXPECT_GT(parts.text(layout.text.width - 20).height, 40) << "the narrowest that will do";
}

TEST(MessageLayout, MovesTheButtonsBelowATextOfManyLines) {
  for (const int dpi : kResolutions) {
    const MessageParts parts = Message(WrongPath(), dpi, 1);
    const MessageLayout layout = LayOutMessage(parts, dpi, Screen(dpi));
    EXPECT_EQ(layout.text.height, parts.text(layout.text.width).height) << dpi;
    EXPECT_EQ(layout.buttons.front().top, layout.text.Bottom() + Pixels(120, dpi)) << dpi;
    EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form)) << dpi;
  }
}

TEST(MessageLayout, CentresALongTextAboveTheButtonsButNotAShortOne) {
  const std::string text = "Una riga";
  MessageParts parts = Message(text, 96);
  parts.centred = false;
  EXPECT_EQ(LayOutMessage(parts, 96, Screen(96)).text.top, 22);
  parts.centred = true;
  EXPECT_EQ(LayOutMessage(parts, 96, Screen(96)).text.top, 1);
}

TEST(MessageLayout, GivesTheIconsPlaceToTheTextWithoutOne) {
  MessageParts parts = Message(Short("Attenzione !"), 96);
  parts.icon = false;
  EXPECT_EQ(LayOutMessage(parts, 96, Screen(96)).text, (Box{12, 1, 376, 40}));
}

TEST(MessageLayout, FitsANarrowScreen) {
  const MessageLayout layout = LayOutMessage(Message(WrongPath(), 192), 192, {800, 600});
  EXPECT_LE(layout.form.width, 720);
  EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form));
}

ChoiceParts Choice(const std::string& heading, const std::string& text, int dpi, bool frame) {
  const Typeface options(12, dpi);
  ChoiceParts parts{Typeface(18, dpi).MeasureOf(heading), Typeface(16, dpi).MeasureOf(text), {}};
  for (const MessageId id :
       {MessageId::kReceiptPrinted, MessageId::kReprintReceipt, MessageId::kAbortReceipt}) {
    if (frame) parts.options.push_back(options.MeasureOf(LoadMessage(id)));
  }
  return parts;
}

std::vector<Box> BoxesOf(const ChoiceLayout& layout) {
  std::vector<Box> boxes{layout.heading, layout.text, layout.button};
  boxes.insert(boxes.end(), layout.options.begin(), layout.options.end());
  return boxes;
}

TEST(ChoiceLayout, PlacesHeadingTextAndButtonBelowEachOther) {
  const ChoiceLayout layout = LayOutChoice(Choice("Carta !", "Ripristinare", 96, false), 96, Screen(96));
  EXPECT_EQ(layout.form, (Extent{360, 124}));
  EXPECT_EQ(layout.heading, (Box{12, 12, 336, 28}));
  EXPECT_EQ(layout.text, (Box{12, 50, 336, 25}));
  EXPECT_EQ(layout.button, (Box{137, 87, 85, 25}));
  EXPECT_EQ(layout.frame, (Box{}));
  EXPECT_TRUE(layout.options.empty());
}

TEST(ChoiceLayout, FramesTheOptions) {
  for (const int dpi : kResolutions) {
    const ChoiceLayout layout = LayOutChoice(
        Choice(LoadMessage(MessageId::kEcrErrorWarning), LoadMessage(EcrErrorMessage(29)), dpi, true), dpi,
        Screen(dpi));
    ASSERT_EQ(layout.options.size(), 3U);
    EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form)) << dpi;
    for (const Box& option : layout.options) {
      EXPECT_GT(option.top, layout.frame.top) << dpi;
      EXPECT_LT(option.Bottom(), layout.frame.Bottom()) << dpi;
      EXPECT_LT(option.Right(), layout.frame.Right()) << dpi;
    }
    EXPECT_GT(layout.frame.top, layout.text.Bottom()) << dpi;
    EXPECT_GT(layout.button.top, layout.frame.Bottom()) << dpi;
  }
}

TEST(ChoiceLayout, LeavesEachOptionRoomForItsMarkAndText) {
  for (const int dpi : kResolutions) {
    const ChoiceParts parts =
        Choice(LoadMessage(MessageId::kEcrErrorWarning), LoadMessage(EcrErrorMessage(29)), dpi, true);
    const ChoiceLayout layout = LayOutChoice(parts, dpi, Screen(dpi));
    for (std::size_t i = 0; i < layout.options.size(); ++i) {
      EXPECT_GE(layout.options[i].width - Pixels(345, dpi), parts.options[i](10000).width) << dpi;
    }
  }
}

TEST(ChoiceLayout, BreaksWhatWouldMakeItTooWide) {
  const std::string heading =
      LoadMessage(MessageId::kInvalidLine) + " 1;" + std::string(30, 'a') + " " + std::string(40, 'b');
  for (const int dpi : kResolutions) {
    const ChoiceParts parts = Choice(heading, LoadMessage(MessageId::kInvalidReceiptLine), dpi, true);
    const ChoiceLayout layout = LayOutChoice(parts, dpi, {1920 * dpi / 96, 1080 * dpi / 96});
    EXPECT_EQ(layout.form.width, Pixels(10800, dpi)) << dpi;
    EXPECT_EQ(layout.heading.height, 2 * Typeface(18, dpi).LineHeight()) << dpi;
    EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form)) << dpi;
  }
}

TEST(ChoiceLayout, BreaksWhatIsWiderThanTheScreen) {
  const std::string line = LoadMessage(MessageId::kInvalidLine) + " 1;" + std::string(24, 'a') + " " +
                           std::string(27, 'b') + "...";
  for (const int dpi : kResolutions) {
    const Extent screen{640 * dpi / 96, 480 * dpi / 96};
    const ChoiceParts parts = Choice(line, LoadMessage(MessageId::kInvalidReceiptLine), dpi, true);
    const ChoiceLayout layout = LayOutChoice(parts, dpi, screen);
    EXPECT_LE(layout.form.width, screen.width * 9 / 10) << dpi;
    EXPECT_EQ(layout.heading.height, parts.heading(layout.heading.width).height) << dpi;
    EXPECT_EQ(layout.heading.height, 2 * Typeface(18, dpi).LineHeight()) << dpi;
    EXPECT_TRUE(LieApart(BoxesOf(layout), layout.form)) << dpi;
  }
}

TEST(PortLayout, PlacesFiveRowsInAFrame) {
  for (const int dpi : kResolutions) {
    const Typeface face(12, dpi);
    PortParts parts{face.MeasureOf(LoadMessage(MessageId::kPortSettings)), {}};
    for (int i = 0; i < 5; ++i) {
      parts.labels[static_cast<std::size_t>(i)] =
          face.MeasureOf(LoadMessage(MessageId{NumberOf(MessageId::kPort) + i}));
    }
    const PortLayout layout = LayOutPort(parts, dpi, Screen(dpi));
    std::vector<Box> boxes{layout.button};
    for (std::size_t i = 0; i < 5; ++i) {
      EXPECT_EQ(layout.labels[i].top, layout.lists[i].top) << dpi;
      EXPECT_GE(layout.labels[i].width, parts.labels[i](10000).width) << dpi;
      EXPECT_LT(layout.lists[i].Right(), layout.frame.Right()) << dpi;
      EXPECT_LT(layout.lists[i].Bottom(), layout.frame.Bottom()) << dpi;
      boxes.insert(boxes.end(), {layout.labels[i], layout.lists[i]});
    }
    EXPECT_TRUE(LieApart(boxes, layout.form)) << dpi;
    EXPECT_GE(layout.frame.width, parts.caption(10000).width + 2 * Pixels(180, dpi)) << dpi;
  }
}

TEST(PortLayout, IsAsWideAsItsRows) {
  const TextMeasure label = Typeface(12, 96).MeasureOf("Porta COM");
  const PortLayout layout = LayOutPort({label, {label, label, label, label, label}}, 96, Screen(96));
  EXPECT_EQ(layout.form, (Extent{262, 266}));
  EXPECT_EQ(layout.labels[0], (Box{24, 42, 72, 28}));
  EXPECT_EQ(layout.lists[0], (Box{108, 42, 130, 28}));
  EXPECT_EQ(layout.lists[4], (Box{108, 182, 130, 28}));
  EXPECT_EQ(layout.button, (Box{88, 229, 85, 25}));
}

TEST(UtilitiesLayout, StacksLargeButtons) {
  const TextMeasure caption = Typeface(12, 96).MeasureOf("Esci");
  const UtilitiesLayout layout = LayOutUtilities({caption, caption, caption}, 96, Screen(96));
  EXPECT_EQ(layout.form, (Extent{328, 188}));
  EXPECT_EQ(layout.buttons[0], (Box{24, 24, 280, 40}));
  EXPECT_EQ(layout.buttons[1], (Box{24, 74, 280, 40}));
  EXPECT_EQ(layout.buttons[2], (Box{24, 124, 280, 40}));
}

TEST(UtilitiesLayout, IsAsWideAsTheLongestCaption) {
  for (const int dpi : kResolutions) {
    const Typeface face(14, dpi);
    const std::array<TextMeasure, 3> captions{
        face.MeasureOf(LoadMessage(MessageId::kExitButton)),
        face.MeasureOf(LoadMessage(MessageId::kClosureButton)),
        face.MeasureOf(LoadMessage(MessageId::kClosureWithReportButton))};
    const UtilitiesLayout layout = LayOutUtilities(captions, dpi, Screen(dpi));
    EXPECT_EQ(layout.buttons[0].width, captions[2](10000).width + Pixels(600, dpi)) << dpi;
    EXPECT_TRUE(LieApart({layout.buttons.begin(), layout.buttons.end()}, layout.form)) << dpi;
  }
}

}  // namespace
}  // namespace orvenza
