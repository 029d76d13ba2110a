<?php
// Hands a sale over to Orvenza and waits for its outcome: php sale.php TICKETS OUTCOMES NUMBER [SECONDS]
//
// TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
// Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
const SALE = [
    ["1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", ""],
    ["2", "1", "200"],
];

function hand_over(string $folder, string $name, array $records): void
{
    $text = "";
    foreach ($records as $record) {
        $text .= implode("\x7f", $record) . "\x7f\r\n"; // each field ends in the character 127
    }
    $path = "$folder/$name";
    if (file_exists($path)) {
        throw new RuntimeException("$path is still waiting");
    }
    // This file is UTF-8. The mask *.txt does not match the name with .tmp.
    $bytes = iconv("UTF-8", "WINDOWS-1252//TRANSLIT", $text);
    if ($bytes === false || @file_put_contents("$path.tmp", $bytes) === false || !rename("$path.tmp", $path)) {
        throw new RuntimeException("$path cannot be written");
    }
}

function outcomes_of(string $folder, string $name): array
{
    return glob("$folder/$name*.ini") ?: [];
}

function read_outcome(string $path): array
{
    $values = [];
    // While it is being replaced, nothing can be read; the next look reads it.
    foreach (@file($path, FILE_IGNORE_NEW_LINES) ?: [] as $line) {
        [$key, $value] = explode("=", rtrim($line, "\r"), 2) + [1 => ""];
        $values[$key] = $value;
    }
    return $values;
}

function sell(string $tickets, string $outcomes, int $number, float $seconds): int
{
    $name = sprintf("%08d.txt", $number); // printed in the order of the numbers
    $older = outcomes_of($outcomes, $name); // if the name was used before, the new outcome gets a number
    hand_over($tickets, $name, SALE);
    $deadline = hrtime(true) + $seconds * 1e9;
    while (hrtime(true) < $deadline) {
        foreach (array_diff(outcomes_of($outcomes, $name), $older) as $path) {
            $outcome = read_outcome($path);
            if (($outcome["State"] ?? "") === "done") {
                echo "$name: {$outcome['Receipt']} ({$outcome['Reason']})\n";
                return in_array($outcome["Receipt"], ["yes", "none"], true) ? 0 : 1;
            }
        }
        usleep(500000);
    }
    echo "$name: not done; do not send it again before somebody has looked\n";
    return 3;
}

try {
    exit(sell($argv[1], $argv[2], (int)$argv[3], (float)($argv[4] ?? 60)));
} catch (Throwable $failure) {
    fwrite(STDERR, $failure->getMessage() . "\n");
    exit(2);
}
