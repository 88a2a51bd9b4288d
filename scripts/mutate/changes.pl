#!/usr/bin/env perl
# Lists changes of one place each, as a programmer might make them by mistake:
#
#   changes.pl list SEED FILE...       one a line: FILE, OFFSET, LENGTH, KIND and the new text, between tabs; in an
#                                      order that the seed decides, the kinds in turn
#   changes.pl apply FILE OFFSET LENGTH TEXT
#
# Kinds: an operator is turned into its neighbour, a literal into another one, a statement is left out. Whether the
# result compiles is not asked.
use strict;
use warnings FATAL => 'all';

my %neighbour = (
  '==' => '!=', '!=' => '==', '<' => '<=', '<=' => '<', '>' => '>=', '>=' => '>',
  '&&' => '||', '||' => '&&', '+' => '-', '-' => '+', '*' => '/', '/' => '*',
  '+=' => '-=', '-=' => '+=', '++' => '--', '--' => '++', '!' => '',
);

my $token = qr{
    (?<gap>\s+ | //[^\n]* | /\*.*?\*/ | ^[ ]*\#[^\n]*)
  | (?<text>"(?:[^"\\\n]|\\.)*")
  | (?<character>'(?:[^'\\\n]|\\.)')
  | (?<number>\d[\w.']*)
  | (?<word>[A-Za-z_]\w*)
  | (?<operator><=>|->\*?|::|[-+*/<>=!]=|&&|\|\||\+\+|--|<<|[-+*/<>!])
  | (?<other>.)
}xsm;

# [kind, text, offset] of everything that is not a gap.
sub tokens_of {
  my ($content) = @_;
  my @tokens;
  while ($content =~ /\G$token/gc) {
    my ($kind) = keys %+;
    push @tokens, [$kind, $+{$kind}, $-[0]] if $kind ne 'gap';
  }
  return @tokens;
}

# Without blanks around it "<" opens the arguments of a template and "*" makes a pointer.
sub operator_change {
  my ($content, $text, $offset) = @_;
  return unless exists $neighbour{$text};
  my $around = substr($content, $offset - 1, length($text) + 2);
  my $alone = $around =~ /^\s.*\s$/s;
  return $neighbour{$text} if $text =~ /^(?:\+\+|--|!)$/ ? $around !~ /\s$/ : $alone;
  return;
}

sub without_a_character {
  my ($text) = @_;
  my @plain;
  while ($text =~ /\G(?:\\.|\{\}|(.))/gs) { push @plain, $-[1] if defined $1 && $1 ne '"' }
  return '"x"' unless @plain;
  substr($text, $plain[int rand @plain], 1, '');
  return $text;
}

sub literal_change {
  my ($kind, $text) = @_;
  return without_a_character($text) if $kind eq 'text';
  return $text eq "'x'" ? "'y'" : "'x'" if $kind eq 'character';
  return $text + 1 if $kind eq 'number' && $text =~ /^\d{1,9}$/;
  return { true => 'false', false => 'true' }->{$text} if $kind eq 'word';
  return;
}

# The length of the statement that begins at the offset: a call, an assignment, a throw or a bare return.
sub statement_length {
  my ($content, $offset) = @_;
  my $rest = substr($content, $offset);
  return if $rest =~ /^(?:using|static_assert|case|default|public|private|return\s+[^;])/;
  my $path = qr/[A-Za-z_][\w:.]*(?:(?:->|\[[^\]]*\]|\(\)\.)[\w:.]+)*/;
  return unless $rest =~ /^(?:throw\b|return;|(?:\+\+|--)?$path(?:\(|\s*[-+*\/|&]?=[^=]))/;
  my $depth = 0;
  while ($rest =~ /\G$token/gc) {
    my ($kind) = keys %+;
    my $text = $+{$kind};
    next if $kind ne 'other';
    $depth++ if $text =~ /[(\[{]/;
    $depth-- if $text =~ /[)\]}]/;
    return if $depth < 0;
    return $+[0] if $depth == 0 && $text eq ';';
  }
  return;
}

sub changes_of {
  my ($path) = @_;
  open my $in, '<:raw', $path or die "$path: $!\n";
  my $content = do { local $/; <$in> };
  my @changes;
  my $before = '{';
  for my $found (tokens_of($content)) {
    my ($kind, $text, $offset) = @$found;
    my $operator = $kind eq 'operator' ? operator_change($content, $text, $offset) : undef;
    push @changes, [$path, $offset, length $text, 'operator', $operator] if defined $operator;
    my $literal = literal_change($kind, $text);
    push @changes, [$path, $offset, length $text, 'literal', $literal] if defined $literal;
    my $length = $before =~ /^(?:[;{})]|else)$/ ? statement_length($content, $offset) : undef;
    push @changes, [$path, $offset, $length, 'statement', ';'] if $length;
    $before = $text;
  }
  return @changes;
}

sub list_changes {
  my ($seed, @files) = @_;
  srand $seed;
  my %by_kind;
  push @{ $by_kind{ $_->[3] } }, $_ for map { changes_of($_) } sort @files;
  while (my @kinds = grep { @{ $by_kind{$_} } } sort keys %by_kind) {
    for my $kind (@kinds) {
      my $list = $by_kind{$kind};
      print join("\t", @{ splice @$list, int rand @$list, 1 }), "\n";
    }
  }
}

sub apply_change {
  my ($path, $offset, $length, $text) = @_;
  open my $in, '<:raw', $path or die "$path: $!\n";
  my $content = do { local $/; <$in> };
  close $in;
  substr($content, $offset, $length, $text);
  open my $out, '>:raw', $path or die "$path: $!\n";
  print $out $content;
  close $out or die "$path: $!\n";
}

my $task = shift // '';
if ($task eq 'list') { list_changes(@ARGV) }
elsif ($task eq 'apply') { apply_change(@ARGV) }
else { die "changes.pl list|apply\n" }
