/** The engine as the page sees it: calls that are answered later, by a worker that can be stopped while it computes. */
import EngineWorker from './worker.ts?worker&inline';
import type { Answer, CallName, Calls, Request } from './protocol.ts';

export class EngineFailure extends Error {}
/** Somebody stopped the worker before it answered. */
export class Stopped extends Error {}

interface Waiting {
    resolve: (answered: unknown) => void;
    reject: (reason: Error) => void;
}

export class Engine {
    private worker: Worker;
    private waiting = new Map<number, Waiting>();
    private next = 1;

    constructor() {
        this.worker = this.freshWorker();
    }

    call<Name extends CallName>(call: Name, asked: Calls[Name]['asked']): Promise<Calls[Name]['answered']> {
        const request: Request = { number: this.next++, call, asked };
        return new Promise((resolve, reject) => {
            this.waiting.set(request.number, { resolve: resolve as (answered: unknown) => void, reject });
            this.worker.postMessage(request);
        });
    }

    /** Ends whatever it computes. What was open is not open any more. */
    stop(): void {
        this.worker.terminate();
        const waiting = [...this.waiting.values()];
        this.waiting.clear();
        this.worker = this.freshWorker();
        for (const { reject } of waiting) reject(new Stopped('stopped'));
    }

    private freshWorker(): Worker {
        const worker = new EngineWorker();
        worker.onmessage = ({ data }: MessageEvent<Answer>) => {
            const waiting = this.waiting.get(data.number);
            this.waiting.delete(data.number);
            if (data.failed === undefined) waiting?.resolve(data.answered);
            else waiting?.reject(new EngineFailure(data.failed));
        };
        worker.onerror = (event) => {
            event.preventDefault();
            if (worker !== this.worker) return;
            const waiting = [...this.waiting.values()];
            this.waiting.clear();
            for (const { reject } of waiting) reject(new EngineFailure(event.message || 'the engine did not start'));
        };
        return worker;
    }
}
