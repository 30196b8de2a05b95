#!/usr/bin/env python3
"""Key cabinets of other makers, written apart from the console and from the simulator.

Each answers at its own speed; what is ready together leaves joined, byte by byte, or torn in two with a pause. Most
visits find new records in the store. Usage: lokere_varie.py FOLDER VISITS ADDRESS=DELAY_MS=joined|bytes|torn ...
Writes FOLDER/ADDRESS.txt: how often the count was asked, records made, records left, cards written.
"""
import asyncio
import os
import socket
import sys


def check(text):
    x = 0
    for c in text:
        x ^= c
    return b"%02X" % x


class Cabinet:
    def __init__(self, folder, visits, address, delay, mode):
        self.path, self.visits, self.address = f"{folder}/{address}.txt", visits, address
        self.delay, self.mode = float(delay) / 1000, mode
        self.store, self.cards, self.made, self.counts, self.writes, self.cut = [], {}, 0, 0, 0, 0

    def new_records(self):
        for _ in range(self.counts % 3 if self.counts < self.visits else 0):
            moment = b"301108%02d%02d%02d" % (8 + self.made // 3600, self.made // 60 % 60, self.made % 60)
            self.store.append(b"0000001001" + b"%010d" % (9000000000 + self.made) + b"00" + moment)
            self.made += 1

    def note(self):
        with open(self.path + ".new", "w") as f:
            f.write(f"{self.counts} {self.made} {len(self.store)} {self.writes}\n")
        os.replace(self.path + ".new", self.path)

    def answer(self, line):
        code, rest = line[:5], line[5:-2]
        if check(line[:-2]) != line[-2:]:
            return code + b"02"
        if code == b"00010":
            return code + b"00HELLO"
        if code == b"0001B":
            return code + b"000000000042"
        if code == b"00039":
            self.counts += 1
            return code + b"00%04d" % len(self.store)
        if code == b"00036":
            return code + (b"00" + self.store[0] if self.store else b"14")
        if code == b"00037":
            if self.store:
                self.store.pop(0)
                return code + b"00"
            return code + b"05"
        if code == b"00031":
            self.cards[rest[:5]] = rest[5:]
            self.writes += 1
            return code + b"00"
        if code == b"00030":
            return code + (b"00" + self.cards[rest[:5]] if rest[:5] in self.cards else b"14")
        if code == b"00032":
            return code + (b"00" if self.cards.pop(rest[:5], None) else b"14")
        return code + b"04"

    async def speak(self, writer, out):
        while True:
            first = await out.get()
            await asyncio.sleep(self.delay)
            text = first
            while not out.empty():
                text += out.get_nowait()
            if self.mode == "bytes":
                for i in range(len(text)):
                    writer.write(text[i : i + 1])
                    await asyncio.sleep(0.0003)
            elif self.mode == "torn":
                self.cut = self.cut % (len(text) - 1) + 1
                writer.write(text[: self.cut])
                await asyncio.sleep(0.25)
                writer.write(text[self.cut :])
            else:
                writer.write(text)

    async def serve(self, reader, writer):
        writer.get_extra_info("socket").setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.new_records()
        out = asyncio.Queue()
        speaking = asyncio.create_task(self.speak(writer, out))
        try:
            while True:
                line = (await reader.readuntil(b"\r"))[:-1]
                text = self.answer(line)
                out.put_nowait(text + check(text) + b"\r")
                self.note()
        except (asyncio.IncompleteReadError, ConnectionError):
            pass
        finally:
            speaking.cancel()
            writer.close()


async def main():
    folder, visits = sys.argv[1], int(sys.argv[2])
    for each in sys.argv[3:]:
        cabinet = Cabinet(folder, visits, *each.split("="))
        await asyncio.start_server(cabinet.serve, cabinet.address, 10001)
    print("pronto", flush=True)
    await asyncio.sleep(900)


asyncio.run(main())
