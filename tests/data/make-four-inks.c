/* SPDX-FileCopyrightText: 2026 the Quarrow team
 * SPDX-License-Identifier: MIT
 *
 * Makes four-inks.jpg: a JPEG of 16 x 16 pixels in cyan, magenta, yellow and black, as printing programs store it,
 * 255 for no ink. libjpeg is needed only here:
 *     cc make-four-inks.c -ljpeg -o /tmp/make-four-inks && /tmp/make-four-inks four-inks.jpg
 */
#include <stdio.h>

#include <jpeglib.h>

int main(int argc, char** argv)
{
    FILE* const file = argc == 2 ? fopen(argv[1], "wb") : NULL;
    if (file == NULL)
    {
        return 1;
    }
    struct jpeg_error_mgr errors;
    struct jpeg_compress_struct jpeg;
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file);
    jpeg.image_width = 16;
    jpeg.image_height = 16;
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg.write_Adobe_marker = TRUE;
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < 16; ++y)
    {
        JSAMPLE row[16 * 4];
        for (int x = 0; x < 16; ++x)
        {
            row[4 * x] = 200;
            row[4 * x + 1] = 100;
            row[4 * x + 2] = 50;
            row[4 * x + 3] = 220;
        }
        JSAMPROW rows = row;
        jpeg_write_scanlines(&jpeg, &rows, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return fclose(file) == 0 ? 0 : 1;
}
