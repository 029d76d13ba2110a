// The settings file. Properties: an upgrade either recognises its version or leaves it unchanged. The
// settings read are valid, the same when read again, and preserved when one value is written.

#include "core/settings.h"

#include <string>

#include "choices.h"
#include "memory_shop.h"
#include "targets.h"

namespace orvenza::fuzz {
namespace {

bool IsFolder(const std::string& path) { return path.ends_with('\\'); }

void RequireUsable(const AppSettings& settings) {
  Require(settings.ComPortNumber >= 1 && settings.ComPortNumber <= setting::kPorts, "the port is 1 to 16");
  Require(static_cast<unsigned char>(settings.SeparatorChar) <= 127, "the separator is 0 to 127");
  Require(settings.HistoricFolder.empty() || IsFolder(settings.HistoricFolder),
          "the historic folder is one, or none");
  Require(settings.TicketFolder.empty() || IsFolder(settings.TicketFolder), "the ticket folder is one");
  Require(settings.TicketFolder + settings.TicketMask == settings.TicketFilesSpec,
          "folder and mask are the whole");
  Require(IsFolder(settings.InProcessFolder) && IsFolder(settings.AbortFolder),
          "the work folders are folders");
}

bool AreSame(const AppSettings& a, const AppSettings& b) {
  return a.TicketFilesSpec == b.TicketFilesSpec && a.HistoricFolder == b.HistoricFolder &&
         a.ComPortNumber == b.ComPortNumber && a.ComSettings == b.ComSettings &&
         a.FrameRetry == b.FrameRetry && a.TimeWaitForAck == b.TimeWaitForAck &&
         a.TimeWaitForEtx == b.TimeWaitForEtx && a.TimeWaitForLONGEtx == b.TimeWaitForLONGEtx &&
         a.TxMessageRetry == b.TxMessageRetry && a.Ident == b.Ident &&
         a.PcTimeCorrection == b.PcTimeCorrection && a.TimeShift == b.TimeShift &&
         a.SeparatorChar == b.SeparatorChar && a.SingleQuantity == b.SingleQuantity &&
         a.FileParser == b.FileParser;
}

}  // namespace

void FuzzSettings(std::string_view input) {
  MemoryShop shop;
  const std::string path = shop.paths.Ini();
  shop.disk.Put(path, std::string(input));
  SettingsFile file(shop.profile, shop.disk.FileSeam(), shop.logs, shop.paths);
  if (!file.UpgradeIni(shop.settings, [] {})) {
    Require(shop.disk.Content(path) == std::string(input), "a file of an unknown version stays as it is");
    return;
  }
  file.ReadIni(shop.settings);
  RequireUsable(shop.settings);
  AppSettings again;
  file.ReadIni(again);
  Require(AreSame(again, shop.settings), "settings read again are the same");
  shop.profile.Write(path, setting::kComSettings, setting::kComPort, "7");
  file.ReadIni(again);
  Require(again.ComPortNumber == 7, "a value that was written is read");
  again.ComPortNumber = shop.settings.ComPortNumber;
  Require(AreSame(again, shop.settings), "writing one value leaves the others");
}

}  // namespace orvenza::fuzz
