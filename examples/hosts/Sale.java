import java.io.IOException;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.*;
import java.util.*;

/**
 * Hands a sale over to Orvenza and waits for its outcome: java Sale.java TICKETS OUTCOMES NUMBER [SECONDS]
 *
 * TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
 * Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
 */
public class Sale {
  static final String[][] SALE = {
    {"1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", ""},
    {"2", "1", "200"},
  };

  static void handOver(Path folder, String name, String[][] records) throws IOException {
    StringBuilder text = new StringBuilder();
    for (String[] record : records) {
      for (String field : record) text.append(field).append('\u007f'); // each field ends in it, the last one too
      text.append("\r\n");
    }
    if (Files.exists(folder.resolve(name))) throw new FileAlreadyExistsException(name + " is still waiting");
    Path unfinished = folder.resolve(name + ".tmp"); // a name that the mask *.txt does not match
    Files.write(unfinished, text.toString().getBytes(Charset.forName("windows-1252")));
    Files.move(unfinished, folder.resolve(name), StandardCopyOption.ATOMIC_MOVE);
  }

  static Set<Path> outcomesOf(Path folder, String name) throws IOException {
    Set<Path> found = new TreeSet<>();
    if (!Files.isDirectory(folder)) return found;
    try (DirectoryStream<Path> files = Files.newDirectoryStream(folder, name + "*.ini")) {
      files.forEach(found::add);
    }
    return found;
  }

  static Map<String, String> readOutcome(Path path) {
    Map<String, String> values = new HashMap<>();
    try {
      for (String line : Files.readAllLines(path, StandardCharsets.UTF_8)) {
        int equals = line.indexOf('=');
        if (equals > 0) values.put(line.substring(0, equals), line.substring(equals + 1));
      }
    } catch (IOException busy) {
      values.clear(); // it is just being replaced; the next look reads it
    }
    return values;
  }

  static int sell(Path tickets, Path outcomes, int number, double seconds) throws Exception {
    String name = String.format("%08d.txt", number); // printed in the order of the numbers
    Set<Path> older = outcomesOf(outcomes, name); // if the name was used before, the new outcome gets a number
    handOver(tickets, name, SALE);
    long deadline = System.nanoTime() + (long) (seconds * 1e9);
    while (System.nanoTime() < deadline) {
      for (Path path : outcomesOf(outcomes, name)) {
        if (older.contains(path)) continue;
        Map<String, String> outcome = readOutcome(path);
        if (!"done".equals(outcome.get("State"))) continue;
        System.out.println(name + ": " + outcome.get("Receipt") + " (" + outcome.get("Reason") + ")");
        return Arrays.asList("yes", "none").contains(outcome.get("Receipt")) ? 0 : 1;
      }
      Thread.sleep(500);
    }
    System.out.println(name + ": not done; do not send it again before somebody has looked");
    return 3;
  }

  public static void main(String[] args) {
    try {
      double seconds = args.length > 3 ? Double.parseDouble(args[3]) : 60;
      System.exit(sell(Paths.get(args[0]), Paths.get(args[1]), Integer.parseInt(args[2]), seconds));
    } catch (Exception failure) {
      System.err.println(failure);
      System.exit(2);
    }
  }
}
