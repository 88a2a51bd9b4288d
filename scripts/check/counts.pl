#!/usr/bin/env perl
# Counts the size of the house: counts.pl FILE..., all files of the project, run in its folder. Holds the product (what
# is in C++ outside tests/, bench/ and cmake/) to the limits below. Files that a program wrote say "generated" in
# their first line; they are left out. Prints the figures and a line per finding, and ends with 1 if there is one.
use strict;
use warnings FATAL => 'all';

my $file_limit = 230;
my $function_limit = 45;
my ($small, $small_share) = (25, 0.9);
my $found_share = 0.8;

my $findings = 0;

sub finding {
  print "@_\n";
  $findings++;
}

sub is_generated {
  my ($path) = @_;
  open my $in, '<', $path or die "$path: $!\n";
  return (<$in> // '') =~ m{^// .*\bgenerated\b}i;
}

sub line_count {
  my ($path) = @_;
  open my $in, '<', $path or die "$path: $!\n";
  my $count = 0;
  $count++ while <$in>;
  return $count;
}

# Name, place and length of each function with a body. A lambda is part of the function that it stands in.
sub functions_of {
  my @options = qw(--quiet=yes --options=NONE --language-force=C++ --kinds-C++=f --fields=+ne);
  open my $tags, '-|', 'ctags', @options, qw(--output-format=u-ctags -f -), @_ or die "ctags: $!\n";
  my @functions;
  while (<$tags>) {
    next if /^!/;
    my ($name, $path) = split /\t/;
    my ($first) = /\tline:(\d+)/;
    my ($last) = /\tend:(\d+)/;
    next if $name =~ /^__anon/;
    if (!defined $last) { finding("$path:$first: the end of $name is not found"); next }
    push @functions, { name => $name, path => $path, line => $first, lines => $last - $first + 1 };
  }
  close $tags or die "ctags ended with $?\n";
  return @functions;
}

# Sources that have nothing to test by themselves. A list of them that decides something after all is a finding.
my @lists = (
  # Which classes a program or DLL offers: whoever creates one of them tests the entry.
  qr{^standins/\w+/(?:local|com/served)_classes\.cpp$},
  qr{^server/com/(?:served_classes|guids)\.cpp$},
  qr{^client/(?:native|windows)_classes\.cpp$},
  # The texts of one language: err_msg_test.cpp and words_test.cpp ask for them in every language.
  qr{^(?:standins/lexbank/|client/report/words_)(?:chinese|english|german)\.cpp$},
  # The tables of one subject of the schema: description_test.cpp and script_test.cpp hold all of them to the rules of
  # a description and to the scripts.
  qr{^schema/(?:administration|closing_and_costing|master_data|stock_documents|stocktaking|surrounding_\w+)\.cpp$},
);

sub is_list {
  my ($path) = @_;
  return 0 unless grep { $path =~ $_ } @lists;
  open my $in, '<', $path or die "$path: $!\n";
  my $code = do { local $/ = undef; <$in> };
  $code =~ s{"(?:[^"\\\n]|\\.)*"|//[^\n]*}{}g;
  finding("$path: decides something, so it is no mere list") if $code =~ /\b(?:if|while|switch|catch)\s*\(|\?/;
  return 1;
}

# What is to be found by a test: the path without its ending, once for all systems that a source is written for anew.
sub subject_of {
  my ($path) = @_;
  return $path =~ s{(?:_posix|_windows)?\.cpp$}{}r;
}

# A test is found by name under the path of its source, in the folder of any level: frame/sql.cpp has
# tests/unit/frame/sql_test.cpp or tests/unit/frame/sql_rounding_test.cpp. What runs on Windows alone has the level
# "com", with or without a folder of its own.
sub is_found_by_name {
  my ($subject, @tests) = @_;
  my ($folder, $stem) = $subject =~ m{^(.*)/([^/]+)$};
  my $room = $folder =~ m{/com$} ? qr{(?:com|[^/]+/\Q$folder\E|com/.+)} : qr{[^/]+/\Q$folder\E};
  return grep { m{^tests/$room/\Q$stem\E(?:_\w+)?_test\.cpp$} } @tests;
}

sub percent { return sprintf '%.1f %%', 100 * $_[0] }

my @code = grep { /\.(?:cpp|h)$/ } @ARGV;
my @product = grep { !m{^(?:tests|bench|cmake)/} && !is_generated($_) } @code;
die "no product files\n" unless @product;

my $longest_file = 0;
for my $path (@product) {
  my $lines = line_count($path);
  $longest_file = $lines if $lines > $longest_file;
  finding("$path: $lines lines, $file_limit are the limit") if $lines > $file_limit;
}

my @functions = functions_of(@product);
die "no functions\n" unless @functions;
for my $long (grep { $_->{lines} > $function_limit } @functions) {
  finding("$long->{path}:$long->{line}: $long->{name} has $long->{lines} lines, $function_limit are the limit");
}
my $share = (grep { $_->{lines} < $small } @functions) / @functions;
finding(percent($share) . " of the functions are below $small lines, " . percent($small_share) . ' are wanted')
  if $share < $small_share;

# What main.cpp starts is run as a program: program_test.cpp, the demo, the tests under Wine.
my @sources = grep { /\.cpp$/ && !m{^samples/} && !m{/main\.cpp$} && !is_list($_) } @product;
my %subjects = map { subject_of($_) => 1 } @sources;
my @subjects = sort keys %subjects;
my @tests = grep { m{^tests/} } @code;
my @missed = grep { !is_found_by_name($_, @tests) } @subjects;
my $found = 1 - @missed / @subjects;
if ($found < $found_share) {
  finding('no test by name: ' . $_) for @missed;
  finding(percent($found) . ' of the sources have a test one finds by name, ' . percent($found_share) . ' are wanted');
}

printf "%d files, the longest has %d lines; %d functions, %s below %d lines; %s of %d sources have a test by name\n",
  scalar @product, $longest_file, scalar @functions, percent($share), $small, percent($found), scalar @subjects;
exit($findings ? 1 : 0);
