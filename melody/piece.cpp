// SPDX-License-Identifier: MIT
// The piece itself: a small salon waltz in g minor, its middle part in b flat major.

#include "piece.h"

namespace melody {

namespace {

// Columns: loudness | accordion | clarinet | guitar | bass | percussion.
// How to write a bar is told at parseBar(), the other lines at parse(). Small b after a letter is
// a flat (bb4), b alone the natural key; c4 is the middle c.
constexpr std::string_view text = R"(
title   Turmfalkenwalzer
meter   3

voice   Akkordeon  channel=1  program=22 volume=124 pan=76 reverb=45 gate=92 level=6
voice   Klarinette channel=2  program=72 volume=106 pan=46 reverb=50 gate=96 level=-8
voice   Gitarre    channel=3  program=25 volume=116 pan=34 reverb=35 gate=50 level=-12
voice   Kontrabass channel=4  program=33 volume=125 pan=64 reverb=20 gate=72 level=2
voice   Schlagwerk channel=10 program=1  volume=118 pan=70 reverb=40 gate=60 level=-12

; After-beats of the guitar: close to each other, so that the hand moves little.
chord   Gm     bb3 d4 g4
chord   G      b3 d4 g4
chord   G7     b3 d4 f4
chord   Cm     c4 eb4 g4
chord   Cm6    a3 c4 eb4
chord   Cm7    bb3 eb4 g4
chord   C#o    bb3 c#4 g4
chord   D7     a3 c4 f#4
chord   A7     g3 c#4 e4
chord   Bb     bb3 d4 f4
chord   Bb7    ab3 d4 f4
chord   Dbo    bb3 e4 g4
chord   F7     a3 c4 eb4
chord   Eb     bb3 eb4 g4
chord   Eo     bb3 db4 g4

; Percussion: bass drum, closed hi-hat by foot, side stick, triangle.
chord   Drum   c2
chord   Hat    g#2
chord   Stick  c#2
chord   Tri    a5

section Vorspiel
tempo   172
76 | d6/4. c#6/8 d6 bb5     | bb4/2.                | r/4 Gm Gm    | g2/2.       | Tri/2.
   | c6/4. b5/8 c6 a5       | a4/2.                 | r/4 Cm6 Cm6  | eb2/2.      | r/4 Hat Hat
tempo   140 over 2
   | bb5/4 g5 e5            | g4/2.                 | r/4 C#o C#o  | a2/2.       | %
62 | d5/4 r d5/8 f#5        | f#4/4 a4/2            | r/4 D7 r     | d2/2.       | -

section A
tempo   176
70 | g5/4.> f#5/8 g5 a5     | bb4/2.                | r/4 Gm Gm    | g2/2.       | r/4 Hat Hat
   | bb5/4 d5/2             | r/4 g4/8 a4 bb4/4     | r/4 Gm Gm    | d2/2.       | %
   | a5/4.> g#5/8 a5 bb5    | c5/2.                 | r/4 D7 D7    | f#2/2.      | %
78 | c6/4 d5/2              | r/4 f#4/8 g4 a4/4     | r/4 D7 D7    | d2/2.       | %
   | c6/4.> bb5/8 a5 g5     | eb5/2.                | r/4 Cm Cm    | eb2/2.      | %
84 | bb5/4 g5/2             | d5/2.                 | r/4 Gm Gm    | g2/2.       | %
   | c#5/8 e5 g5 bb5 a5 g5  | g4/2.                 | r/4 A7 A7    | a2/2.       | %
68 | f#5/2 d5/8 f#5         | a4/4 c5/2             | r/4 D7 D7    | d2/4 a2 d2  | r/4 Hat Stick

section A'
76 | g5/4.> f#5/8 g5 a5     | bb4/2.                | r/4 Gm Gm    | g2/2.       | Drum/4 Hat Hat
   | b5/4 d6/2              | d5/4 g5/2             | r/4 G G      | f2/2.       | %
   | c6/4.> b5/8 c6 d6      | eb5/2.                | r/4 Cm Cm    | eb2/2.      | %
88 | eb6/4> g5/2            | r/4 g4/8 c5 eb5/4     | r/4 Cm Cm    | c2/2.       | %
94 | d6/4.> c#6/8 d6 bb5    | bb5/4. a5/8 bb5 g5    | r/4 Gm Gm    | d2/2.       | %
   | c6/8 bb5 a5 g5 f#5 a5  | a5/8 g5 f#5 eb5 d5 c5 | r/4 D7 D7    | d2/4 a2 d2  | %
78 | g5/4 d5 bb4            | bb4/4 g4/2            | r/4 Gm Gm    | g2/2.       | %
64 | g4/4' r/2              | @+16 r/4 f4/8 a4 c5 eb5 | r/4 F7 F7  | g2/4 f2/2   | -

section B
tempo   168
66 | @-34 f4+bb4/2.~        | d5/2 c#5/8 d5         | r/4 Bb Bb    | bb2/2.      | Tri/2.
   | f4+bb4/2.              | f5/2 bb5/4            | r/4 Bb Bb    | d2/2.       | r/4 Stick Stick
   | g4+bb4/2.~             | e5/2> bb5/4           | r/4 Dbo Dbo  | db2/2.      | %
76 | g4+bb4/2.              | eb5/2.                | r/4 Cm7 Cm7  | c2/2.       | %
66 | eb4+g4/2.              | c5/2 b4/8 c5          | r/4 Cm7 Cm7  | g2/2.       | %
   | f4+c5/2.               | eb5/2> a5/4           | r/4 F7 F7    | f2/2.       | %
72 | f4+bb4/2.~             | bb5/2 g5/4            | r/4 Bb Bb    | bb2/2.      | %
   | f4+bb4/2.              | f5/4 bb5 ab5          | r/4 Bb7 Bb7  | bb2/4 ab2 f2 | %
tempo   176
80 | @0 bb5/2 a5/8 bb5      | @+8 g5/2 f#5/8 g5     | r/4 Eb Eb    | eb2/2.      | Tri/4 Hat Hat
   | db6/2 bb5/4            | bb5/2 g5/4            | r/4 Eo Eo    | e2/2.       | Drum/4 Hat Hat
   | d6/4. c#6/8 d6 eb6     | bb5/4. a5/8 bb5 c6    | r/4 Bb Bb    | f2/2.       | %
96 | f6/4> d6 b5            | d6/4 b5 g5            | r/4 G7 G7    | g2/2.       | %
   | eb6/2> bb5/4~          | c6/2 g5/4~            | r/4 Cm Cm    | c2/2.       | r/4 Hat Hat
90 | bb5/4 c#6/2            | g5/4 bb5/2            | r/4 A7 A7    | a2/2.       | %
tempo   144 over 2
80 | d6/2 c6/4              | a5/2.                 | r/4 D7 D7    | d2/2.       | r/4 Hat r
62 | r/4 d5/8 eb5 e5 f#5    | @0 f#5/4 r/2          | D7/4 r/2     | d2/4 r/2    | -

section A''
tempo   178
82 | g5/4.> f#5/8 g5 a5     | r/8 d5 bb4 g4 bb4 d5  | r/4 Gm Gm    | g2/2.       | Drum/4 Hat Hat
   | b5/4 d6/2              | d5/4 g5/2             | r/4 G G      | f2/2.       | %
   | c6/4.> b5/8 c6 d6      | r/8 eb5 c5 g4 c5 eb5  | r/4 Cm Cm    | eb2/2.      | %
92 | eb6/4> g5/2            | r/4 g4/8 c5 eb5/4     | r/4 Cm Cm    | c2/2.       | %
   | d6/4.> c#6/8 d6 bb5    | bb5/4. a5/8 bb5 g5    | r/4 Gm Gm    | d2/2.       | %
   | c6/8 bb5 a5 g5 f#5 a5  | a5/8 g5 f#5 eb5 d5 c5 | r/4 D7 D7    | d2/4 a2 d2  | %
98 | g5/4> eb5 bb4          | bb4/4 g4/2            | r/4 Eb Eb    | eb2/2.>     | Tri/4 Hat Hat
84 | c5/8 eb5 a5 g5 c6 a5   | a4/2 eb5/4            | r/4 Cm6 Cm6  | c2/2.       | Drum/4 Hat Hat

section Schluss
tempo   138 over 2
96 | bb5/4.> a5/8 bb5 d6    | d5/2 g5/4             | r/4 Gm Gm    | d2/2.       | Drum/4 Hat Hat
90 | c6/4 a5 f#5            | a5/4 f#5 c5           | r/4 D7 D7    | d2/4 d2 d2  | -
tempo   166
78 | g5/4. f#5/8 g5 b5      | b4/2.                 | r/4 G G      | g2/2.       | Tri/4 Hat Hat
   | d6/4 b5/2              | r/4 d5/8 e5 d5/4      | r/4 G G      | b2/2.       | r/4 Hat Hat
   | a5/4. g#5/8 a5 c6      | c5/2.                 | r/4 D7 D7    | f#2/2.      | %
64 | b5/4 g5/2              | d5/2 b4/4             | r/4 G G      | g2/2.       | %
tempo   116 over 1
56 | d5/8 g5 b5 d6 g6/4     | r/4 d5/2              | G/4 r/2      | g2/4 d2 b2  | -
tempo   120
86 | b4+g5/4' r/2           | d5/4' r/2             | G/4 r/2      | g2/4 r/2    | Tri/4 r/2
)";

} // namespace

std::string_view pieceText() {
    return text;
}

} // namespace melody
