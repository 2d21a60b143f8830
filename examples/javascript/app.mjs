// An app of a few lines, in place of yours.

import net from 'node:net';

/** Reads sentences and connects again when the connection ends; with APP=lazy it does not. */
export class App {
  sentences = 0;

  constructor(port) {
    this.port = port;
    this.#connect();
  }

  close() {
    this.closed = true;
    clearTimeout(this.retry);
    this.socket.destroy();
  }

  #connect() {
    this.socket = net.connect(this.port, '127.0.0.1');
    this.socket.setEncoding('latin1');
    this.socket.on('data', (text) => (this.sentences += text.split('\n').length - 1));
    this.socket.on('error', () => {}); // 'close' comes after it
    this.socket.on('close', () => {
      if (this.closed || process.env.APP === 'lazy') return;
      this.retry = setTimeout(() => this.#connect(), 500);
    });
  }
}
