// Hands a sale over to Orvenza and waits for its outcome: Sale TICKETS OUTCOMES NUMBER [SECONDS]
//
// TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
// Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Text;
using System.Threading;

static class Sale {
  static readonly string[][] Records = {
    new[] { "1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", "" },
    new[] { "2", "1", "200" },
  };

  static void HandOver(string folder, string name, string[][] records) {
    // Each field ends in the character 127, the last one too.
    string text = string.Concat(records.Select(record => string.Concat(record.Select(f => f + "\u007f")) + "\r\n"));
    string path = Path.Combine(folder, name);
    // .NET 5 and later: first Encoding.RegisterProvider(CodePagesEncodingProvider.Instance);
    File.WriteAllText(path + ".tmp", text, Encoding.GetEncoding(1252)); // a name that the mask *.txt does not match
    File.Move(path + ".tmp", path); // fails if a ticket of this name is still waiting
  }

  static string[] OutcomesOf(string folder, string name) {
    return Directory.Exists(folder) ? Directory.GetFiles(folder, name + "*.ini") : new string[0];
  }

  static Dictionary<string, string> ReadOutcome(string path) {
    try {
      return File.ReadAllLines(path).Where(line => line.Contains("="))
          .ToDictionary(line => line.Substring(0, line.IndexOf('=')), line => line.Substring(line.IndexOf('=') + 1));
    } catch (IOException) {
      return null; // it is just being replaced; the next look reads it
    }
  }

  static int Sell(string tickets, string outcomes, int number, double seconds) {
    string name = number.ToString("D8") + ".txt"; // printed in the order of the numbers
    string[] older = OutcomesOf(outcomes, name); // if the name was used before, the new outcome gets a number
    HandOver(tickets, name, Records);
    for (var watch = Stopwatch.StartNew(); watch.Elapsed.TotalSeconds < seconds; Thread.Sleep(500)) {
      foreach (string path in OutcomesOf(outcomes, name).Except(older)) {
        Dictionary<string, string> outcome = ReadOutcome(path);
        if (outcome == null || outcome["State"] != "done") continue;
        Console.WriteLine("{0}: {1} ({2})", name, outcome["Receipt"], outcome["Reason"]);
        return outcome["Receipt"] == "yes" || outcome["Receipt"] == "none" ? 0 : 1;
      }
    }
    Console.WriteLine(name + ": not done; do not send it again before somebody has looked");
    return 3;
  }

  static int Main(string[] args) {
    try {
      return Sell(args[0], args[1], int.Parse(args[2]), args.Length > 3 ? double.Parse(args[3]) : 60);
    } catch (Exception failure) {
      Console.Error.WriteLine(failure.Message);
      return 2;
    }
  }
}
