#!/usr/bin/env perl
# Holds files to .editorconfig: text.pl FILE..., run in the folder of .editorconfig. Knows the properties that are used
# there and refuses others, so that a new one is not believed to be held. Prints a line per finding and ends with 1.
use strict;
use warnings FATAL => 'all';

# A pattern as .editorconfig has it: * any name, ** any path, {a,b} either; without a "/" it fits in every folder.
sub pattern {
  my ($glob) = @_;
  my $anywhere = $glob !~ m{/};
  my $depth = 0;
  my $regex = '';
  while ($glob =~ /\G(\*\*|\*|\?|\{|\}|,|.)/g) {
    my $piece = $1;
    if ($piece eq '**') { $regex .= '.*' }
    elsif ($piece eq '*') { $regex .= '[^/]*' }
    elsif ($piece eq '?') { $regex .= '[^/]' }
    elsif ($piece eq '{') { $regex .= '(?:'; $depth++ }
    elsif ($piece eq '}') { $regex .= ')'; $depth-- }
    elsif ($piece eq ',' && $depth) { $regex .= '|' }
    else { $regex .= quotemeta $piece }
  }
  return $anywhere ? qr{(?:^|/)$regex$} : qr{^$regex$};
}

my %held = (
  root => qr/^true$/,
  charset => qr/^utf-8$/,
  end_of_line => qr/^(?:lf|crlf)$/,
  insert_final_newline => qr/^true$/,
  trim_trailing_whitespace => qr/^(?:true|unset)$/,
  indent_style => qr/^space$/,
  max_line_length => qr/^(?:\d+|off)$/,
);

sub sections {
  my ($path) = @_;
  my @sections = ({ pattern => qr/^/, properties => {} });
  open my $in, '<', $path or die "$path: $!\n";
  while (<$in>) {
    next if /^\s*(?:[#;].*)?$/;
    if (/^\[(.+)\]\s*$/) { push @sections, { pattern => pattern($1), properties => {} }; next }
    my ($name, $value) = /^\s*([a-z_]+)\s*=\s*(\S+)\s*$/;
    die "$path:$.: text.pl does not hold files to this line\n"
      unless $name && $held{$name} && $value =~ $held{$name};
    $sections[-1]{properties}{$name} = $value;
  }
  return @sections;
}

my $findings = 0;

sub finding {
  print "@_\n";
  $findings++;
}

sub check_lines {
  my ($path, $content, $wanted) = @_;
  my $number = 0;
  for my $line (split /\n/, $content) {
    $number++;
    my $return = $line =~ s/\r$//;
    finding("$path:$number: ends with CR LF") if $return && $wanted->{end_of_line} eq 'lf';
    finding("$path:$number: does not end with CR LF") if !$return && $wanted->{end_of_line} eq 'crlf';
    finding("$path:$number: blanks at the end") if $wanted->{trim_trailing_whitespace} eq 'true' && $line =~ /[ \t]$/;
    finding("$path:$number: indented with a tab") if $line =~ /^ *\t/;
    finding("$path:$number: " . length($line) . " characters, $wanted->{max_line_length} fit")
      if $wanted->{max_line_length} ne 'off' && length($line) > $wanted->{max_line_length};
  }
}

my @sections = sections('.editorconfig');
# A picture is no text.
for my $path (grep { !/\.png$/ } @ARGV) {
  my %wanted;
  for my $section (@sections) {
    %wanted = (%wanted, %{ $section->{properties} }) if $path =~ $section->{pattern};
  }
  open my $in, '<:raw', $path or do { finding("$path: $!"); next };
  my $content = do { local $/; <$in> };
  next if !defined $content || $content eq '';
  if (!utf8::decode($content)) { finding("$path: is not UTF-8"); next }
  finding("$path: begins with a byte order mark") if $content =~ /^\x{feff}/;
  finding("$path: the last line has no end") if $content !~ /\n$/;
  check_lines($path, $content, \%wanted);
}
exit($findings ? 1 : 0);
