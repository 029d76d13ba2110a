#!/usr/bin/env bash
# Checks the links of the pages: tools/check_links.sh [ROOT]. Every relative link of a Markdown file must lead to a
# file, and its anchor to a heading of that file. Every broken link is one line, FILE:LINE: what is wrong, and fails.
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

find . -name '*.md' ! -path './build/*' ! -path './dist/*' -print0 | LC_ALL=C sort -z | xargs -0 -r perl -CSDA -e '
  # Calls the function with each line outside code blocks and its number.
  sub lines {
    my ($file, $see) = @_;
    open(my $in, "<", $file) or die "$file: $!\n";
    my $code = 0;
    while (<$in>) {
      if (/^\s*```/) { $code = !$code }
      elsif (!$code) { $see->($_, $.) }
    }
  }

  # The anchors of a file, one per heading, generated like on GitHub.
  my %known;
  sub anchors {
    my ($file) = @_;
    return $known{$file} if $known{$file};
    my (%anchors, %times);
    lines($file, sub {
      return unless $_[0] =~ /^#+\s+(.*?)\s*$/;
      my $anchor = lc $1;
      $anchor =~ s/[^\w\- ]//g;
      $anchor =~ s/ /-/g;
      my $before = $times{$anchor}++;
      $anchors{$before ? "$anchor-$before" : $anchor} = 1;
    });
    return $known{$file} = \%anchors;
  }

  my $broken = 0;
  for my $page (@ARGV) {
    (my $shown = $page) =~ s{^\./}{};
    (my $folder = $page) =~ s{[^/]*$}{};
    lines($page, sub {
      my ($line, $number) = @_;
      $line =~ s/`[^`]*`//g;
      while ($line =~ /\]\(([^)\s]+)\)/g) {
        my $link = $1;
        next if $link =~ /^\w+:/;
        my ($file, $anchor) = split /#/, $link, 2;
        my $target = $file eq "" ? $page : $folder . $file;
        my $wrong = !-e $target ? "there is no such file"
          : defined $anchor && !anchors($target)->{$anchor} ? "the page has no such heading" : next;
        print "$shown:$number: $link: $wrong\n";
        $broken = 1;
      }
    });
  }
  exit $broken;
'
