#!/usr/bin/env bash
# Draws the pictures of the readme pages: the score bars as vector pictures, and of every vector picture in
# data/HTMLImages the GIF whose name the pages hold. Needs rsvg-convert and ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/../data/HTMLImages"

for score in $(seq 0 10); do
    {
        printf '<svg xmlns="http://www.w3.org/2000/svg" width="62" height="12" viewBox="0 0 62 12">'
        for bar in $(seq 0 9); do
            colour='#d5d9e4'
            [ "$bar" -lt "$score" ] && colour='#3fa650'
            printf '<rect x="%d" y="1" width="4" height="10" rx="1.2" fill="%s"/>' $((1 + bar * 6)) "$colour"
        done
        printf '</svg>\n'
    } >"vk$score.svg"
done

# GIF knows no half-transparent pixels: edges are drawn towards white, the ground of a page as it comes.
for picture in *.svg; do
    rsvg-convert "$picture" |
        convert png:- \( -clone 0 -alpha extract -threshold 6% \) \
            \( -clone 0 -background white -alpha remove -alpha off \) -delete 0 +swap \
            -alpha off -compose CopyOpacity -composite +dither -colors 63 "${picture%.svg}.gif"
done
