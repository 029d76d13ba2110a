// Hands a sale over to Orvenza and waits for its outcome: node sale.js TICKETS OUTCOMES NUMBER [SECONDS]
//
// TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
// Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
"use strict";
const fs = require("fs");
const path = require("path");

const SALE = [
  ["1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", ""],
  ["2", "1", "200"],
];

// Node writes Latin-1, which is Windows-1252 except for a few characters; of these only the euro is used.
const toWindows1252 = (text) => Buffer.from(text.replace(/€/g, "\x80").replace(/[^\0-\xff]/g, "?"), "latin1");

function handOver(folder, name, records) {
  // Each field ends in the character 127, the last one too.
  const text = records.map((record) => record.map((field) => field + "\x7f").join("") + "\r\n").join("");
  const file = path.join(folder, name);
  if (fs.existsSync(file)) throw new Error(`${file} is still waiting`);
  fs.writeFileSync(file + ".tmp", toWindows1252(text)); // a name that the mask *.txt does not match
  fs.renameSync(file + ".tmp", file);
}

function outcomesOf(folder, name) {
  if (!fs.existsSync(folder)) return [];
  return fs.readdirSync(folder).filter((file) => file.startsWith(name) && file.endsWith(".ini"));
}

function readOutcome(file) {
  let lines = [];
  try {
    lines = fs.readFileSync(file, "utf8").split("\r\n").filter((line) => line.includes("="));
  } catch {
    // It is just being replaced; the next look reads it.
  }
  return Object.fromEntries(lines.map((line) => [line.split("=", 1)[0], line.slice(line.indexOf("=") + 1)]));
}

async function sell(tickets, outcomes, number, seconds) {
  const name = String(number).padStart(8, "0") + ".txt"; // printed in the order of the numbers
  const older = outcomesOf(outcomes, name); // if the name was used before, the new outcome gets a number
  handOver(tickets, name, SALE);
  for (const end = process.uptime() + seconds; process.uptime() < end; ) {
    for (const file of outcomesOf(outcomes, name).filter((file) => !older.includes(file))) {
      const outcome = readOutcome(path.join(outcomes, file));
      if (outcome.State !== "done") continue;
      console.log(`${name}: ${outcome.Receipt} (${outcome.Reason})`);
      return ["yes", "none"].includes(outcome.Receipt) ? 0 : 1;
    }
    await new Promise((resume) => setTimeout(resume, 500));
  }
  console.log(`${name}: not done; do not send it again before somebody has looked`);
  return 3;
}

const [tickets, outcomes, number, seconds = 60] = process.argv.slice(2);
sell(tickets, outcomes, number, Number(seconds)).then(
  (status) => { process.exitCode = status; },
  (failure) => { console.error(failure.message); process.exitCode = 2; });
