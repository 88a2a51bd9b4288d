#!/usr/bin/env perl
# Whether what the documents name is there: links.pl DOCUMENT..., run in the project's folder. Three things are looked
# at: links and pictures, with their headings; paths between backticks that begin in a folder of the project; and
# command lines of indented or fenced blocks that begin with a script. Prints a line per finding and ends with 1.
use strict;
use warnings FATAL => 'all';

my $findings = 0;

sub finding {
  print "@_\n";
  $findings++;
}

sub content_of {
  my ($path) = @_;
  open my $in, '<:encoding(UTF-8)', $path or die "$path: $!\n";
  return do { local $/; <$in> };
}

# The names by which headings can be linked to: small letters, no punctuation, "-" for a blank.
my %headings;

sub headings_of {
  my ($path) = @_;
  return $headings{$path} //= do {
    my %names;
    for my $title (content_of($path) =~ /^#+ +(.+?) *$/mg) {
      my $name = lc $title;
      $name =~ s/\[([^\]]*)\]\([^)]*\)/$1/g;
      $name =~ s/[^\w -]//g;
      $name =~ s/ /-/g;
      $names{$name}++;
    }
    \%names;
  };
}

# The path from the project's folder, with what leads up and down again taken out.
sub normal {
  my ($path) = @_;
  my @parts;
  for my $part (split m{/}, $path) {
    next if $part eq '' || $part eq '.';
    if ($part eq '..') { return undef unless @parts; pop @parts }
    else { push @parts, $part }
  }
  return join '/', @parts;
}

sub check_link {
  my ($document, $line, $target) = @_;
  return if $target =~ m{^(?:https?|mailto):};
  my ($path, $heading) = $target =~ /^([^#]*)(?:#(.*))?$/;
  my ($folder) = $document =~ m{^(.*/)?[^/]*$};
  my $file = $path eq '' ? $document : normal(($folder // '') . $path);
  if (!defined $file || !-e $file) { finding("$document:$line: the link $target leads nowhere"); return }
  finding("$document:$line: the link $target names no heading of $file")
    if defined $heading && (-d $file || !headings_of($file)->{$heading});
}

# A path between backticks is one when its first folder is one of the project's; "*", "{a,b}" and <name> stand for
# anything, so the folder before them must be there.
sub check_path {
  my ($document, $line, $path) = @_;
  my ($first) = $path =~ m{^([\w.-]+)/};
  return unless defined $first && -d $first && $first ne 'build';
  $path =~ s/(?:::|\(| ).*$//;
  $path =~ s/:\d+$//;
  $path =~ s{[^/]*[*<\[].*$}{};
  my @paths = $path =~ /^(.*)\{(.*)\}(.*)$/ ? map { "$1$_$3" } split /,/, $2 : ($path);
  for my $named (@paths) {
    finding("$document:$line: $named is not there") unless -e $named;
  }
}

for my $document (@ARGV) {
  my ($number, $fenced, $before) = (0, 0, '');
  for my $line (split /\n/, content_of($document)) {
    $number++;
    if ($line =~ /^\s*```/) { $fenced = !$fenced; next }
    # An indented block begins after an empty line; otherwise it is the item of a list that goes on.
    my $indented = $line =~ /^ {4}/ && $before =~ /^(?: {4}|\s*$)/;
    $before = $indented || $line !~ /^ {4}/ ? $line : 'item';
    if ($fenced || $indented) {
      check_path($document, $number, $1) if $line =~ m{^\s*((?:scripts|tests)/\S+\.sh)\b};
      next;
    }
    check_link($document, $number, $1) while $line =~ /\]\(\s*<?([^)>\s]+)>?[^)]*\)/g;
    check_link($document, $number, $1) while $line =~ /<(?:img|a|source)\b[^>]*?(?:src|href|srcset)="([^"]+)"/g;
    check_path($document, $number, $1) while $line =~ /`([^`]+)`/g;
  }
}
exit($findings ? 1 : 0);
