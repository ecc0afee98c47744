#pragma once

#include <string>

// A complete drive image: files in the root and a folder, a ZIP with its closing row, a RAR
// in a subfolder. Code page 1252 with CR LF, as a capture writes it.
inline std::string exampleImage()
{
    return ">d:\r\nd:\\liesmich.txt|1834|12.03.2003 09:41:07\r\n>d:\\Bilder\r\n"
           "d:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n>d:\\Bilder\\alt.zip\r\n"
           "d:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001\r\n"
           "d:\\Bilder\\alt.zip\\2001/garten.jpg|98012|04.11.2001\r\nd:\\Bilder\\alt.zip\\||\r\n"
           "d:\\Bilder\\garten.jpg|501772|28.07.2002 18:02:50\r\n>d:\\Setup\r\n>d:\\Setup\\daten.rar\r\n"
           "d:\\Setup\\daten.rar\\lib/core.dll|804864|19.01.2003\r\n"
           "d:\\Setup\\daten.rar\\liesmich.txt|2210|19.01.2003\r\n"
           "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31\r\n\r\n";
}
