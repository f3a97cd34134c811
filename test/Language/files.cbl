      *> RUN: %tarka check --verify %s
       identification division.
       program-id. files.
       environment division.
       input-output section.
       file-control.
           select f assign to f.
           select f assign to g. *> expect: 5022:19
           select undescribed assign to h. *> expect: 5021:19
           select r assign to r organization relative access random
             relative key k.
           select d assign to d organization relative access dynamic
             relative key k.
           select q assign to q organization relative.
           select i assign to i organization indexed record key i-key.
           select l assign to l.
           select sf assign to sf.
           select random-1 assign to random-1 organization sequential
             access random. *> expect: 5032
           select old-isam assign to old-isam
             access random record key old-key.
           select page-1 assign to page-1.
           select page-2 assign to page-2.
       data division.
       file section.
       fd f.
       1 f-record pic x(10).
       fd r.
       1 r-record pic x(10).
       fd d.
       1 d-record pic x(10).
       fd q.
       1 q-record pic x(10).
       fd i.
       1 i-record.
        2 i-key pic x(10).
       fd l linage 60.
       1 l-record pic x(10).
       sd sf.
       1 sf-record.
        2 sk pic x(10).
       fd random-1 record contains 0 characters.
       1 random-record pic x.
       fd old-isam.
       1 old-record.
        2 old-key pic x(4).
       fd page-1 linage 0. *> expect: 5034
       1 page-record pic x.
       fd page-2 linage 10 footing 11. *> expect: 5035
       1 page-2-record pic x.
       working-storage section.
       1 k pic 9(4).
       1 x pic x(5).
       1 g.
        2 e pic 9.
         88 e-on value 1.
       procedure division.
           exit paragraph. *> expect: 5013
       main.
           start f *> expect: 5026
           start f key = k *> expect: 3566
           delete f *> expect: 5026
           start r *> expect: 5027
           start d
           delete r invalid key display x end-delete
           delete q
           delete q invalid key display x end-delete *> expect: 5027
           read r next at end display x end-read *> expect: 5027
           read d next at end display x end-read
           read r invalid key display x end-read
           read r at end display x end-read *> expect: 5027
           read q at end display x end-read
           read q invalid key display x end-read *> expect: 5027
           read d at end display x end-read
           read d invalid key display x end-read
           read d at end continue invalid key continue end-read *> expect: 5033
           write f-record at end-of-page display x end-write *> expect: 5024
           write l-record at end-of-page display x end-write
           write l-record after page at end-of-page display x *> expect: 5025
           end-write
      *> A record that was just read, or written behind the last one, is not found by a key.
           rewrite f-record invalid key display x end-rewrite *> expect: 5026:20
           rewrite q-record invalid key display x end-rewrite *> expect: 5027:20
           rewrite f-record
           rewrite d-record not invalid key display x end-rewrite
           rewrite i-record invalid key display x end-rewrite
           write f-record invalid key display x end-write
           close f reel for removal l with no rewind d with lock
           close d with no rewind r unit *> expect: 5028:18 5028:35
           merge sf ascending key sk using f f giving l *> expect: 5023:46
           merge sf ascending key sk using f l giving l *> expect: 5023:55
           sort sf ascending key sk using f giving f
      *> Receivers and groups.
           move k to length of x *> expect: 5011
           move length of x to k
           move corresponding x to g *> expect: 5012
           move corresponding g to e *> expect: 5012
           move corresponding g to g
           exit section *> expect: 5013
           exit paragraph
           if k = 1 exit paragraph end-if
           stop run.
       end program files.
