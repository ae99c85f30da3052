/* The least that any scan of a library has to do: for each zip named on the command line, or in a folder
 * named there, read the central directory and inflate the readme, which is the first .txt or .rtf entry at
 * the root. Prints the entries and the bytes of the readmes, so that nothing can be left out unseen. */
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

static unsigned u16(const unsigned char *p) {
    return p[0] | p[1] << 8;
}
static unsigned u32(const unsigned char *p) {
    return u16(p) | u16(p + 2) << 16;
}
static long entries, bytes;

/* Reads all of it or ends the program: a floor that leaves something out is none. */
static void read_at(int file, void *data, size_t size, off_t at) {
    if (pread(file, data, size, at) == (ssize_t)size)
        return;
    fprintf(stderr, "a zip is cut off\n");
    exit(1);
}

static int is_readme(const unsigned char *name, unsigned length) {
    return length > 4 && !memchr(name, '/', length) &&
           (!strncasecmp((const char *)name + length - 4, ".txt", 4) ||
            !strncasecmp((const char *)name + length - 4, ".rtf", 4));
}

static void inflate_entry(int file, const unsigned char *record) {
    unsigned char local[30];
    unsigned packed = u32(record + 20), size = u32(record + 24), at = u32(record + 42);
    read_at(file, local, sizeof local, at);
    unsigned char *in = malloc(packed + 1), *out = malloc(size + 1);
    read_at(file, in, packed, at + 30 + u16(local + 26) + u16(local + 28));
    z_stream z = {.next_in = in, .avail_in = packed, .next_out = out, .avail_out = size};
    if (u16(record + 10) == 0)
        memcpy(out, in, packed < size ? packed : size);
    else if (inflateInit2(&z, -MAX_WBITS) == Z_OK) {
        inflate(&z, Z_FINISH);
        inflateEnd(&z);
    }
    bytes += crc32(0, out, size) == u32(record + 16) ? size : 0;
    free(in);
    free(out);
}

static void scan_zip(const char *path) {
    unsigned char end[22];
    struct stat status;
    int file = open(path, O_RDONLY), found = 0;
    if (file < 0 || fstat(file, &status) || pread(file, end, 22, status.st_size - 22) != 22 ||
        u32(end) != 0x06054b50)
        return (void)fprintf(stderr, "%s is passed over\n", path);
    unsigned size = u32(end + 12);
    unsigned char *directory = malloc(size + 1), *record = directory;
    read_at(file, directory, size, u32(end + 16));
    for (unsigned i = u16(end + 10); i && record + 46 <= directory + size; --i, ++entries) {
        if (!found && is_readme(record + 46, u16(record + 28)) && ++found)
            inflate_entry(file, record);
        record += 46 + u16(record + 28) + u16(record + 30) + u16(record + 32);
    }
    free(directory);
    close(file);
}

int main(int argc, char **argv) {
    for (int i = 1; i < argc; ++i) {
        DIR *folder = opendir(argv[i]);
        if (!folder)
            scan_zip(argv[i]);
        for (struct dirent *e; folder && (e = readdir(folder));) {
            char path[4096];
            size_t length = strlen(e->d_name);
            snprintf(path, sizeof path, "%s/%s", argv[i], e->d_name);
            if (length > 4 && !strcasecmp(e->d_name + length - 4, ".zip"))
                scan_zip(path);
        }
        if (folder)
            closedir(folder);
    }
    return printf("%ld entries, %ld bytes of readmes\n", entries, bytes) < 0;
}
